#pragma once

#include "ByteView.h"
#include "Complaints.h"

namespace brackwater::inspect {

/// A value of a summary stream.
struct SummaryValue {
    std::uint32_t id = 0;
    std::string text;
};

/// The values of the first section of an OLE property set, in the order of its table.
[[nodiscard]] std::vector<SummaryValue> readPropertySet(ByteView stream, std::string_view where,
                                                        Complaints& complaints);

} // namespace brackwater::inspect
