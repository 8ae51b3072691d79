#include "IQelLight.h"

IQelLight::IQelLight() = default;

IQelLight::IQelLight(const IQelLight& other) = default;

IQelLight& IQelLight::operator=(const IQelLight& other) = default;

IQelLight::~IQelLight() = default;
