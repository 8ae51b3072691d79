#pragma once

namespace qel {

/// Intrusive smart pointer over any descendant of `QelReferenced`: one raw pointer, one reference.
///
/// It adds its reference with `ref` and releases it with `unref`. A raw pointer converts implicitly, so that
/// a fresh object can be passed straight to an operation that takes it over. A pointer to a derived class
/// converts to one to its base.
template <class T>
class ref_ptr {
    template <class Other>
    friend class ref_ptr;

    // Spelled out, since the public headers compile without the standard library.
    template <class Derived>
    static constexpr bool kIsBaseOf = requires(Derived* derived, T*& base) {
        base = derived;
    };

  public:
    /// @{
    /// Empty, or with a reference of its own to the object; a moved pointer hands its reference over.
    ref_ptr() noexcept = default;
    ref_ptr(T* object) noexcept : pointer(object) {  // NOLINT(google-explicit-constructor)
        if (pointer != nullptr) {
            pointer->ref();
        }
    }
    ref_ptr(const ref_ptr& other) noexcept : ref_ptr(other.pointer) {}
    ref_ptr(ref_ptr&& other) noexcept : pointer(other.pointer) { other.pointer = nullptr; }
    template <class Derived>
    requires kIsBaseOf<Derived> ref_ptr(const ref_ptr<Derived>& other)
    noexcept  // NOLINT(google-explicit-constructor)
        : ref_ptr(other.pointer) {}
    template <class Derived>
    requires kIsBaseOf<Derived> ref_ptr(ref_ptr<Derived>&& other)
    noexcept  // NOLINT(google-explicit-constructor)
        : pointer(other.pointer) {
        other.pointer = nullptr;
    }
    ~ref_ptr() { reset(); }
    /// @}

    /// @{
    /// Adds a reference to the other's object, or takes its reference over, and releases the old one.
    ref_ptr& operator=(const ref_ptr& other) noexcept { return *this = other.pointer; }
    ref_ptr& operator=(ref_ptr&& other) noexcept {
        if (this != &other) {
            T* const taken = other.pointer;
            other.pointer = nullptr;
            T* const old = pointer;
            pointer = taken;
            if (old != nullptr) {
                old->unref();
            }
        }
        return *this;
    }
    /// @}
    /// Stores the new pointer first, then adds its reference, then releases the old one; nothing when both
    /// are the same.
    ref_ptr& operator=(T* object) noexcept {
        if (object != pointer) {
            T* const old = pointer;
            pointer = object;
            if (pointer != nullptr) {
                pointer->ref();
            }
            if (old != nullptr) {
                old->unref();
            }
        }
        return *this;
    }

    /// Releases the reference and leaves the pointer empty.
    void reset() noexcept {
        T* const old = pointer;
        pointer = nullptr;
        if (old != nullptr) {
            old->unref();
        }
    }

    /// @{
    /// The object, without a reference; null if the pointer is empty.
    [[nodiscard]] T* get() const noexcept { return pointer; }
    T* operator->() const noexcept { return pointer; }
    T& operator*() const noexcept { return *pointer; }
    explicit operator bool() const noexcept { return pointer != nullptr; }
    /// @}

    /// @{
    /// True if both are the same object, or none. Compares without a reference.
    template <class Other>
    [[nodiscard]] bool operator==(const ref_ptr<Other>& other) const noexcept {
        return pointer == other.pointer;
    }
    [[nodiscard]] bool operator==(const T* object) const noexcept { return pointer == object; }
    /// @}

  private:
    T* pointer = nullptr;
};

/// A pointer that takes over the reference that a factory's object carries, as in
/// `qel::adopt(newScreenDisplay())`. Null gives an empty pointer.
template <class T>
[[nodiscard]] ref_ptr<T> adopt(T* object) noexcept {
    ref_ptr<T> pointer(object);
    if (object != nullptr) {
        object->Release();
    }
    return pointer;
}

}  // namespace qel
