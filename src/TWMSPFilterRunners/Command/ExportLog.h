#pragma once

#include "Platform/Log/Log.h"
#include "TWMSPFilterRunners/Command/ExportResult.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace brackwater {

/// Listens to the log of one export: counts its warnings, remembers why it failed, and passes the lines on if somebody
/// reads them.
class ExportLog : public LogSink {
public:
    /// `workFolder` is the name of the temporary folder in which the output is created: it is removed from all lines.
    ExportLog(bool isRead, std::string workFolder) : _isRead(isRead), _workFolder(std::move(workFolder)) {}

    [[nodiscard]] bool wants(std::string_view beginning) const override;
    void receive(std::string_view text) override;

    /// The warnings by text, in order of first occurrence. After a thousand texts they share the last entry.
    [[nodiscard]] const std::vector<WarningCount>& warnings() const noexcept { return _warnings; }
    /// The runner's reason for stopping; empty if it did not stop.
    [[nodiscard]] const std::string& fault() const noexcept { return _fault; }

    /// The text without the work folder's name.
    [[nodiscard]] std::string withoutWorkFolder(std::string_view text) const;

private:
    void count(std::string_view warning);

    bool _isRead;
    std::string _workFolder;
    std::vector<WarningCount> _warnings;
    std::unordered_map<std::string, std::size_t> _placeOfWarning;
    std::string _fault;
};

} // namespace brackwater
