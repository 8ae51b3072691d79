#include "CQelLineSeg.h"

CQelLineSeg::~CQelLineSeg() = default;
