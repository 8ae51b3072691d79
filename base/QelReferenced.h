#pragma once

#include <cstdint>

#include "QelBaseExport.h"

namespace qel {

/// Base class of every object that crosses the module's boundary: an intrusive reference count.
///
/// A new object has no reference; each owner adds one. `ref`/`unref` and `AddRef`/`Release` act on the same
/// count: smart pointers use the first pair, plain pointers between modules the second. The count is atomic,
/// so references may be added and released on any thread; the object itself is only as thread-safe as its
/// class says.
class QEL_BASE_API QelReferenced {
  public:
    QelReferenced() noexcept = default;
    /// A copy is a separate object and starts without references.
    QelReferenced(const QelReferenced&) noexcept {}
    /// Assignment keeps the count of the object assigned to.
    QelReferenced& operator=(const QelReferenced&) noexcept { return *this; }

    /// Adds one reference.
    void ref() const noexcept;
    /// Releases one reference. Releasing the last one destroys the object at once, on the calling thread.
    void unref() const noexcept;
    /// Adds one reference, for another module or an owner that keeps a plain pointer.
    void AddRef() const noexcept { ref(); }
    /// Releases a reference added with `AddRef`, as `unref` does.
    void Release() const noexcept { unref(); }

    /// The current number of references, for diagnostics: another thread may change it at any time.
    [[nodiscard]] std::int32_t referenceCount() const noexcept;

  protected:
    virtual ~QelReferenced();

  private:
    mutable std::int32_t references = 0;
};

}  // namespace qel
