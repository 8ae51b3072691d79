#include "IQelGL.h"

IQelGL::IQelGL() = default;

IQelGL::IQelGL(const IQelGL& other) = default;

IQelGL& IQelGL::operator=(const IQelGL& other) = default;

IQelGL::~IQelGL() = default;
