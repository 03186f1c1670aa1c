#pragma once

#include "Platform/Log/Log.h"

#include <string>
#include <string_view>
#include <vector>

namespace brackwater::test {

/// Collects the log during its lifetime, one entry per message, without time stamps.
class LogCapture : public LogSink {
public:
    void receive(std::string_view text) override { _lines.emplace_back(text); }
    [[nodiscard]] const std::vector<std::string>& lines() const { return _lines; }
    [[nodiscard]] std::string joined() const;
    [[nodiscard]] bool contains(std::string_view text) const;

private:
    std::vector<std::string> _lines;
};

} // namespace brackwater::test
