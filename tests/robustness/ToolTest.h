#pragma once

#include "support/PlanBundle.h"
#include "support/TempFolder.h"
#include "support/ToolRun.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace brackwater::test {

/// The built program, run on a small bundle with the template that is shipped; the output goes into a folder of its
/// own.
class ToolTest : public testing::Test {
protected:
    /// Starts an export to `output`; `fault` is told to the fault library.
    [[nodiscard]] pid_t startExport(const std::string& output, const std::string& fault = {});
    /// The same, up to its end.
    ToolEnd exportTo(const std::string& output, const std::string& fault = {});

    /// True when the fault of the last export came to pass.
    [[nodiscard]] bool faultCameToPass() const { return _folder.has("fault-mark"); }
    [[nodiscard]] std::string log() const { return _folder.read("log"); }
    [[nodiscard]] bool logHas(const std::string& text) const { return log().find(text) != std::string::npos; }
    void setOverwriting() const;
    /// Makes the bundle one whose log is longer than the buffer of its lines and than a pipe.
    void writeTalkativePlan() const;

    /// Asks that the log ends in a failed export that says why.
    void expectFailedExport() const;
    /// Names of all that the folder holds, hidden files too.
    [[nodiscard]] static std::set<std::string> namesIn(const std::string& folder);

    TempFolder _folder;
    const std::string _bundle = writeBundle(_folder, "Plan.zelb");
    std::string _template = std::string(BRACKWATER_BINARY_DIR) + "/share/Template.mpp";
    const std::string _out = _folder.makeFolder("out");
    std::vector<int> _closed; ///< descriptors that the program is started without
    std::size_t _mostBytesOfAFile = 0;
    std::size_t _mostMemory = 0;
};

} // namespace brackwater::test
