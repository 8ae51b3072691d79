#pragma once
// Included before Qt's source of files and folders: what Wine's headers of the shell and of access rights
// lack.
#include <qt_windows.h>
// After the header that it depends on.
#include <aclapi.h>
#include <objbase.h>
#include <shlobj.h>

#ifndef IID_PPV_ARGS
extern "C++" template <class Interface>
void** IID_PPV_ARGS_Helper(Interface** place) {
    return reinterpret_cast<void**>(place);
}
#define IID_PPV_ARGS(place) __uuidof(**(place)), IID_PPV_ARGS_Helper(place)
#endif
#ifndef FOFX_RECYCLEONDELETE
#define FOFX_RECYCLEONDELETE 0x00080000
#endif

// Wine's has another layout than Qt's code expects.
struct QelFileIdInfo {
    ULONGLONG VolumeSerialNumber;
    struct {
        BYTE Identifier[16];
    } FileId;
};
#define FILE_ID_INFO QelFileIdInfo

// Wine's takes a name that may be written.
inline DWORD qelNamedSecurityInfo(const wchar_t* name, SE_OBJECT_TYPE type, SECURITY_INFORMATION wanted,
                                  PSID* owner, PSID* group, PACL* access, PACL* audit,
                                  PSECURITY_DESCRIPTOR* found) {
    return GetNamedSecurityInfoW(const_cast<wchar_t*>(name), type, wanted, owner, group, access, audit,
                                 found);
}
#undef GetNamedSecurityInfo
#define GetNamedSecurityInfo qelNamedSecurityInfo
