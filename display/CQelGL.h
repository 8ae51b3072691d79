#pragma once

#include "IQelGL.h"

/// Forwards each call to OpenGL; it has no state of its own.
class CQelGL : public IQelGL {
  public:
    std::int32_t enable(std::uint32_t capability) override;
    std::int32_t disable(std::uint32_t capability) override;
    bool isEnabled(std::uint32_t capability) override;
    std::int32_t cullFace(std::uint32_t mode) override;
    std::int32_t getIntegerv(std::uint32_t name, std::int32_t* values) override;
    std::int32_t getBooleanv(std::uint32_t name, std::uint8_t* values) override;
    std::int32_t getDoublev(std::uint32_t name, double* values) override;
    std::int32_t getFloatv(std::uint32_t name, float* values) override;
    std::int32_t lightModeli(std::uint32_t name, std::int32_t value) override;
    std::int32_t lightModelf(std::uint32_t name, float value) override;
    std::int32_t lightModeliv(std::uint32_t name, const std::int32_t* values) override;
    std::int32_t lightModelfv(std::uint32_t name, const float* values) override;

  protected:
    ~CQelGL() override = default;
};
