#pragma once

#include <memory>

/// Releases an object that a COM call has returned.
struct ComRelease
{
    template <typename Interface>
    void operator()(Interface *object) const
    {
        object->Release();
    }
};

/// An owned COM object.
template <typename Interface>
using ComPointer = std::unique_ptr<Interface, ComRelease>;

/// Takes what \a call writes to the pointer that it is given; null when it fails. A failed call may
/// have written anything.
template <typename Interface, typename Call>
ComPointer<Interface> comObject(const Call &call)
{
    Interface *object = nullptr;
    return ComPointer<Interface>(call(&object) >= 0 ? object : nullptr);
}
