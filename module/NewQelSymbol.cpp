#include <new>

#include "CQelSimpSymbol.h"
#include "QelDisplay64t.h"

IQelSymbol* newQelSymbol() {
    return new (std::nothrow) CQelSimpSymbol();
}
