#pragma once

namespace brackwater {

/// True until standard error does not take a part of the log that is written out (Log.h). There is nowhere to tell such
/// a loss but by the status of whoever has a file for the log.
[[nodiscard]] bool isLogWhole();

} // namespace brackwater
