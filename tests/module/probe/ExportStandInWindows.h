#pragma once

#include <windows.h>

/// Puts a function of the program's in the place of one that a library exports, for libraries that are loaded
/// later: the loader then leads their imports to the stand-in. Libraries that are loaded already keep the
/// original.
class ExportStandIn {
  public:
    ExportStandIn(const char* library, const char* name, void* standIn);
    ~ExportStandIn();
    ExportStandIn(const ExportStandIn&) = delete;
    ExportStandIn& operator=(const ExportStandIn&) = delete;

    /// False if the library does not export the function.
    bool stands() const { return entry != nullptr; }

  private:
    DWORD* entry = nullptr;
    DWORD original = 0;
};
