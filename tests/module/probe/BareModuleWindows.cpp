#include "PublicSymbol.h"
#include "QelDisplay64t.h"

// What the load entry needs of the module, without the module: so it can be built for another C runtime than the rest.

IQelSymbol* newQelSymbol() {
    return nullptr;
}

namespace qel {

void setPublicSymbol(IQelSymbol* /*fresh*/) {}

void unlockPublicSymbolForGood() {}

}  // namespace qel
