#pragma once

#include <cstdint>

#include "QelBaseExport.h"

namespace qel {

/// Base of every object that crosses the module's boundary: an intrusive reference count.
///
/// A new object carries no reference; whoever keeps it takes one. `ref`/`unref` and `AddRef`/`Release` are
/// two spellings of the same counter: smart pointers use the first pair, hand-overs between modules the
/// second. The count is atomic, so references may be taken and given back on any thread; the object itself is
/// only as thread-safe as its class says.
class QEL_BASE_API QelReferenced {
  public:
    QelReferenced() noexcept = default;
    /// A copy is a new object: it starts without references, whatever the original carries.
    QelReferenced(const QelReferenced&) noexcept {}
    /// Assignment copies no count: the references that others hold stay theirs.
    QelReferenced& operator=(const QelReferenced&) noexcept { return *this; }

    /// Adds one reference.
    void ref() const noexcept;
    /// Gives one reference back; the last one deletes the object at once, on the calling thread.
    void unref() const noexcept;
    /// Adds one reference on behalf of another module or of an owner that keeps a plain pointer.
    void AddRef() const noexcept { ref(); }
    /// Gives back a reference taken with `AddRef`; the last one deletes the object at once.
    void Release() const noexcept { unref(); }

    /// The references held at this moment; for diagnostics, since another thread may change it meanwhile.
    [[nodiscard]] std::int32_t referenceCount() const noexcept;

  protected:
    virtual ~QelReferenced();

  private:
    mutable std::int32_t references = 0;
};

}  // namespace qel
