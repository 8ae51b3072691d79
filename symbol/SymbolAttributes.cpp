#include <utility>

#include "CQelSimpSymbol.h"
#include "QelStatus.h"

// A very light bluish grey instead of white: existing hosts rely on it. The alpha byte keeps its default.
CQelSimpSymbol::CQelSimpSymbol() {
    color.r = 250;
    color.g = 250;
    color.b = 254;
}

CQelSimpSymbol::~CQelSimpSymbol() = default;

// The results of the setters are part of the interface: 1 for name, size and second colour, 0 for width and
// colour.

std::int32_t CQelSimpSymbol::setName(QString newName) {
    name = std::move(newName);
    return 1;
}

QString CQelSimpSymbol::getName() {
    return name;
}

std::int32_t CQelSimpSymbol::setSymbolSize(float size) {
    symbolSize = size;
    return 1;
}

float CQelSimpSymbol::getSymbolSize() {
    return symbolSize;
}

std::int32_t CQelSimpSymbol::setAuxColor(qel::QelColor4b given) {
    auxColor = given;
    return 1;
}

qel::QelColor4b CQelSimpSymbol::getAuxColor() {
    return auxColor;
}

std::int32_t CQelSimpSymbol::setLineWidth(float width) {
    lineWidth = static_cast<double>(width);
    return 0;
}

float CQelSimpSymbol::getLineWidth() {
    return static_cast<float>(lineWidth);
}

std::int32_t CQelSimpSymbol::setColor(qel::QelColor4b given) {
    color = given;
    return 0;
}

std::int32_t CQelSimpSymbol::getColor(qel::QelColor4b& result) {
    result = color;
    return 0;
}

std::int32_t CQelSimpSymbol::reservedSlot3() {
    return qel::kNotImplemented;
}

std::int32_t CQelSimpSymbol::reservedSlot4() {
    return qel::kNotImplemented;
}

std::int32_t CQelSimpSymbol::reservedSlot7() {
    return qel::kNotImplemented;
}

std::int32_t CQelSimpSymbol::reservedSlot39() {
    return qel::kNotImplemented;
}

std::int32_t CQelSimpSymbol::reservedSlot40() {
    return qel::kNotImplemented;
}
