#include "IQelSymbol.h"

IQelSymbol::IQelSymbol() = default;

IQelSymbol::IQelSymbol(const IQelSymbol& other) = default;

IQelSymbol& IQelSymbol::operator=(const IQelSymbol& other) = default;

IQelSymbol::~IQelSymbol() = default;
