#pragma once

#include "ByteView.h"
#include "Recurrence.h"

#include <functional>

namespace brackwater::inspect {

/// How an exception of a calendar comes back; nothing where it holds on every day. The entry must hold its 88 bytes.
/// What is not understood is told in the words of a complaint.
[[nodiscard]] std::optional<Recurrence> recurrenceAt(ByteView entry,
                                                     const std::function<void(std::string_view)>& complain);

} // namespace brackwater::inspect
