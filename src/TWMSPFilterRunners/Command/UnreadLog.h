#pragma once

#include "Platform/Log/Log.h"

namespace brackwater {

/// Nobody reads what is logged while it lives.
class UnreadLog : public LogSink {
public:
    [[nodiscard]] bool wants(std::string_view) const override { return false; }
    void receive(std::string_view) override {}
};

} // namespace brackwater
