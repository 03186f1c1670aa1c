#include "TWMSPFilterRunners/Command/CommandRun.h"

#include "Platform/Files/StandardDescriptors.h"
#include "Platform/Text/VisibleText.h"
#include "TWMSPFilterRunners/Command/BundleExports.h"
#include "TWMSPFilterRunners/Command/CommandLine.h"
#include "TWMSPFilterRunners/Command/CommandOutput.h"
#include "TWMSPFilterRunners/Command/UsageError.h"

#include <fmt/format.h>

#include <csignal>
#include <exception>

namespace brackwater {

namespace {

void tell(std::string_view fault) { tellOnStandardError(fmt::format("brackwater: {}\n", visibleText(fault))); }

int answer(const CommandAnswer& answer) {
    CommandOutput output(nullptr);
    output.print(answer.text);
    if (output.isWhole())
        return static_cast<int>(CommandStatus::Exported);
    tell("standard output cannot be written");
    return static_cast<int>(CommandStatus::SomeFailed);
}

int run(std::span<const std::string> arguments) {
    try {
        const auto asked = parseCommandLine(arguments);
        if (const auto* text = std::get_if<CommandAnswer>(&asked))
            return answer(*text);
        return BundleExports(std::get<CommandOptions>(asked)).run();
    } catch (const UsageError& fault) {
        tell(fmt::format("{} (brackwater --help shows the usage)", fault.what()));
        return static_cast<int>(CommandStatus::WrongUsage);
    } catch (const std::exception& fault) {
        tell(fault.what());
        return static_cast<int>(CommandStatus::SomeFailed);
    }
}

} // namespace

int runCommand(std::span<const std::string> arguments) {
    // A vanished reader or a limit on file sizes then shows as a failed write.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    return run(arguments);
}

} // namespace brackwater
