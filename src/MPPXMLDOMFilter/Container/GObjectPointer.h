#pragma once

#include <gsf/gsf.h>

#include <memory>

namespace brackwater {

struct GObjectRelease {
    void operator()(gpointer object) const noexcept { g_object_unref(object); }
};

/// Owns one reference to an object of the compound-file library. Only this folder's sources include it.
template <typename Object>
using GObjectPointer = std::unique_ptr<Object, GObjectRelease>;

/// Another reference to an object that someone else owns.
template <typename Object>
[[nodiscard]] GObjectPointer<Object> shareGObject(Object* object) {
    return GObjectPointer<Object>(static_cast<Object*>(g_object_ref(object)));
}

} // namespace brackwater
