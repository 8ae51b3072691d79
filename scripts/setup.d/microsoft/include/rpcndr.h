#pragma once
// Wine's headers leave the identifiers of interfaces out of the declarations, where __uuidof looks for them.
#include_next <rpcndr.h>
#undef MIDL_INTERFACE
#define MIDL_INTERFACE(identifier) struct __declspec(uuid(identifier)) __declspec(novtable)
#undef DECLSPEC_UUID
#define DECLSPEC_UUID(identifier) __declspec(uuid(identifier))
