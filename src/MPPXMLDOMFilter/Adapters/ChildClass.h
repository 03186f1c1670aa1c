#pragma once

#include "MPPXMLDOMFilter/Adapters/MSPEXMLAdapter.h"
#include "Platform/Values/Exception.h"

namespace brackwater {

/// A parent's check that it was given a child at all.
inline const MSPEXMLAdapter& requireChild(const std::shared_ptr<MSPEXMLAdapter>& child) {
    assertThat(child != nullptr, "Unexpected 'child' argument class: {}", MSPEXMLAdapter::classNameOf(child.get()));
    return *child;
}

/// Checks that the child is of the class that belongs to its name.
template <typename Concrete>
const Concrete& requireChildClass(const MSPEXMLAdapter& child) {
    const auto* concrete = dynamic_cast<const Concrete*>(&child);
    assertThat(concrete != nullptr, "Unexpected 'child' argument class: {}", child.className());
    return *concrete;
}

/// The same check with the message of the calendar elements.
template <typename Concrete>
const Concrete& requireReceivedClass(const MSPEXMLAdapter& child) {
    const auto* concrete = dynamic_cast<const Concrete*>(&child);
    assertThat(concrete != nullptr, "Received adapter of incorect class '{}'", child.className());
    return *concrete;
}

} // namespace brackwater
