#include "IQelTransform.h"

IQelTransform::IQelTransform() = default;

IQelTransform::IQelTransform(const IQelTransform& other) = default;

IQelTransform& IQelTransform::operator=(const IQelTransform& other) = default;

IQelTransform::~IQelTransform() = default;
