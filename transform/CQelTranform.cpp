#include "CQelTranform.h"

CQelTranform::CQelTranform() = default;

CQelTranform::CQelTranform(const CQelTranform& other) = default;

CQelTranform& CQelTranform::operator=(const CQelTranform&) = default;

CQelTranform::~CQelTranform() = default;

std::int32_t CQelTranform::isSupported() {
    return 1;
}
