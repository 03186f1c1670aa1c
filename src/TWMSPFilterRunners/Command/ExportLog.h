#pragma once

#include "Platform/Log/Log.h"
#include "TWMSPFilterRunners/Command/ExportResult.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace brackwater {

/// Listens to the log of one export: counts its warnings, remembers why it failed, and hands the lines on where
/// somebody reads them.
class ExportLog : public LogSink {
public:
    /// `workFolder` is the name of the folder in which the output is made before it is moved into place: no line shows
    /// it.
    ExportLog(bool isRead, std::string workFolder) : _isRead(isRead), _workFolder(std::move(workFolder)) {}

    [[nodiscard]] bool wants(std::string_view beginning) const override;
    void receive(std::string_view text) override;

    /// The warnings, by text, in the order of their first. Beyond a thousand texts they share the last entry.
    [[nodiscard]] const std::vector<WarningCount>& warnings() const noexcept { return _warnings; }
    /// What the runner said when it stopped; empty where it did not.
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
