#pragma once

#include "Platform/Log/Log.h"

namespace brackwater {

/// Discards the log during its lifetime.
class UnreadLog : public LogSink {
public:
    [[nodiscard]] bool wants(std::string_view) const override { return false; }
    void receive(std::string_view) override {}
};

} // namespace brackwater
