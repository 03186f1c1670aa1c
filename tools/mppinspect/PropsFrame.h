#pragma once

#include "ByteView.h"
#include "Complaints.h"

#include <unordered_map>

namespace brackwater::inspect {

/// One property of a Props stream; its payload is a view into the stream's bytes.
struct Property {
    std::uint32_t type = 0;
    std::uint32_t thirdWord = 0;
    ByteView payload;
};

/// A decoded Props stream. It holds views: the stream's bytes must outlive it.
class PropsFrame {
public:
    PropsFrame() = default;
    PropsFrame(ByteView stream, std::string_view where, Complaints& complaints);

    [[nodiscard]] std::uint32_t magic() const noexcept { return _magic; }
    [[nodiscard]] const std::vector<Property>& properties() const noexcept { return _properties; }
    /// The first property of the type, or null.
    [[nodiscard]] const Property* find(std::uint32_t type) const;
    /// The payload of the first property of the type; empty without one.
    [[nodiscard]] ByteView payload(std::uint32_t type) const;

private:
    std::uint32_t _magic = 0;
    std::vector<Property> _properties;
    std::unordered_map<std::uint32_t, std::size_t> _index;
};

} // namespace brackwater::inspect
