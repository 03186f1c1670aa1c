#include "TWMSPFilterRunners/Command/CommandRun.h"

#include "Platform/VisibleText.h"
#include "TWMSPFilterRunners/Command/BundleExports.h"
#include "TWMSPFilterRunners/Command/CommandLine.h"
#include "TWMSPFilterRunners/Command/UsageError.h"

#include <fmt/format.h>

#include <csignal>
#include <cstdio>
#include <exception>

namespace brackwater {

namespace {

void tell(std::string_view fault) { fmt::print(stderr, "brackwater: {}\n", visibleText(fault)); }

int answer(const CommandAnswer& answer) {
    std::fwrite(answer.text.data(), 1, answer.text.size(), stdout);
    return static_cast<int>(CommandStatus::Exported);
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
    // Readers that go away and limits on file sizes show as failed writes.
    static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    const int status = run(arguments);
    if (std::fflush(stdout) == 0 && std::ferror(stdout) == 0)
        return status;
    tell("standard output cannot be written");
    return status == static_cast<int>(CommandStatus::Exported) ? static_cast<int>(CommandStatus::SomeFailed) : status;
}

} // namespace brackwater
