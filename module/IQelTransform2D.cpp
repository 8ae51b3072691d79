#include "IQelTransform2D.h"

IQelTransform2D::IQelTransform2D() = default;

IQelTransform2D::IQelTransform2D(const IQelTransform2D& other) = default;

IQelTransform2D& IQelTransform2D::operator=(const IQelTransform2D& other) = default;

IQelTransform2D::~IQelTransform2D() = default;
