#pragma once

namespace qel {

/// Intrusive smart pointer over any descendant of `QelReferenced`: one raw pointer, one reference.
///
/// It takes its reference with `ref` and gives it back with `unref`. A raw pointer converts implicitly, so
/// that a fresh object can be passed straight to an operation that takes it over.
template <class T>
class ref_ptr {
  public:
    /// @{
    /// Empty, or with a reference of its own on the object; a moved pointer hands its reference over.
    ref_ptr() noexcept = default;
    ref_ptr(T* object) noexcept : pointer(object) {  // NOLINT(google-explicit-constructor)
        if (pointer != nullptr) {
            pointer->ref();
        }
    }
    ref_ptr(const ref_ptr& other) noexcept : ref_ptr(other.pointer) {}
    ref_ptr(ref_ptr&& other) noexcept : pointer(other.pointer) { other.pointer = nullptr; }
    template <class Derived>
    ref_ptr(const ref_ptr<Derived>& other) noexcept
        : ref_ptr(other.get()) {}  // NOLINT(google-explicit-constructor)
    ~ref_ptr() { reset(); }
    /// @}

    /// @{
    /// Takes a reference on the other's object, or takes its reference over, and gives the old one back.
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
    /// Stores the new pointer first, then takes its reference, then gives the old one back; nothing when both
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

    /// Gives the reference back and leaves the pointer empty.
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

  private:
    T* pointer = nullptr;
};

/// @{
/// True if both hold the same object, or none.
template <class A, class B>
[[nodiscard]] bool operator==(const ref_ptr<A>& left, const ref_ptr<B>& right) noexcept {
    return left.get() == right.get();
}

template <class T>
[[nodiscard]] bool operator==(const ref_ptr<T>& left, const T* right) noexcept {
    return left.get() == right;
}
/// @}

}  // namespace qel
