#include "TWMSPFilterRunners/Command/CommandLine.h"

#include "loss-report/LossKinds.h"

#include "Platform/Values/Processors.h"
#include "TWMSPFilterRunners/Command/UsageError.h"

#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <memory>
#include <numeric>
#include <string_view>

namespace brackwater {

namespace {

constexpr unsigned kMostJobs = 1024;
constexpr std::size_t kOptionColumn = 25;

constexpr std::string_view kPurpose =
    "Exports planning documents of the Tarnwick application to Microsoft Project files.";
constexpr std::string_view kUsage = "Usage: brackwater [OPTION ...] PLAN.zelb ...\n"
                                    "       brackwater [OPTION ...] --input-list LIST\n";
constexpr std::string_view kEnd =
    "Without -o each file is written beside its bundle. An existing output is kept, and the new one gets a number.\n"
    "Exit status: 0 all exported, 1 one or more failed, 2 wrong usage, 3 something was lost (--fail-on-loss),\n"
    "130 interrupted.\n";

class Help : public CLI::Formatter {
public:
    Help() { column_width(kOptionColumn); }

    std::string make_help(const CLI::App* app, std::string, CLI::AppFormatMode) const override {
        return fmt::format("{}{}\n{}\n{}", kUsage, kPurpose, make_groups(app, CLI::AppFormatMode::Normal), kEnd);
    }

    std::string make_option_opts(const CLI::Option* option) const override {
        const std::string kind = option->get_type_name();
        return kind.empty() ? kind : " " + kind;
    }
};

/// Edit distance: the number of characters to insert, delete or replace.
std::size_t distanceBetween(std::string_view from, std::string_view to) {
    std::vector<std::size_t> row(to.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < from.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < to.size(); ++j) {
            const std::size_t exchanged = diagonal + (from[i] == to[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({exchanged, row[j] + 1, row[j + 1] + 1});
        }
    }
    return row.back();
}

/// The long option that was abbreviated or is closest to a mistyped one; empty if none is close.
std::string optionNear(const CLI::App& app, std::string_view typed) {
    constexpr std::size_t mostSteps = 3; // "--ouput", "--templte", "--fail-on-los"
    const std::string_view name = typed.substr(0, std::min(typed.find('='), mostSteps + 24));
    std::string nearest;
    std::size_t least = std::min(mostSteps, name.size() / 3) + 1;
    for (const CLI::Option* option : app.get_options()) {
        for (const std::string& longName : option->get_lnames()) {
            const std::string candidate = "--" + longName;
            const bool isCutShort = name.size() > 2 && candidate.starts_with(name);
            const std::size_t steps = isCutShort ? 0 : distanceBetween(name, candidate);
            if (steps < least) {
                least = steps;
                nearest = candidate;
            }
        }
    }
    return nearest;
}

/// Empty for a kind of loss that reports may name.
std::string faultOfLossKind(const std::string& id) {
    const bool isKnown =
        std::ranges::any_of(lossreport::lossKinds(), [&id](const auto& kind) { return kind.id == id; });
    return isKnown ? std::string() : fmt::format("there is no kind of loss '{}'", id);
}

class CommandLine {
public:
    CommandLine() {
        _options.jobs = std::min(static_cast<unsigned>(usableProcessors()), kMostJobs);
        _app.formatter(std::make_shared<Help>());
        _app.set_help_flag("-h,--help", "show this");
        _app.set_version_flag("--version", fmt::format("brackwater {}", BRACKWATER_VERSION), "show the version");
        _app.add_option("bundles", _options.bundles, "the bundles to export")->type_name("PLAN.zelb ...");
        takeText("-o,--output", _options.output, "OUT", "output folder, or output file for a single bundle");
        takeText("-t,--template", _options.templatePath, "FILE", "template to use instead of the installed one");
        takeText("--input-list", _options.inputList, "LIST",
                 "export the bundles listed in a file, one per line; -: standard input");
        _app.add_option("-j,--jobs", _options.jobs, "bundles to export in parallel (default: all processors)")
            ->type_name("N")
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast)
            ->check(CLI::Range(1U, kMostJobs).description(""));
        takeFlag("-f,--force", _options.replacesOutputs, "replace existing outputs");
        takeFlag("--exact", _options.exact, "write the same values as Brackwater, even where readers misread them");
        takeText("--log", _options.log, "FILE", "log every step of each export");
        takeText("--report", _options.report, "FILE", "write a report in JSON");
        CLI::Option* const failOnLoss =
            takeFlag("--fail-on-loss", _options.failsOnLoss, "exit with status 3 if a document lost something");
        _app.add_option("--accept-loss", _options.acceptedLosses, "but not for losses of these kinds")
            ->type_name("KIND,...")
            ->delimiter(',')
            ->allow_extra_args(false)
            ->needs(failOnLoss)
            ->check(faultOfLossKind);
        takeFlag("-q,--quiet", _options.quiet, "report failures only");
    }

    std::variant<CommandOptions, CommandAnswer> parse(std::vector<std::string> arguments) {
        std::reverse(arguments.begin(), arguments.end()); // the order that the library requires
        try {
            _app.parse(std::move(arguments));
        } catch (const CLI::CallForHelp&) {
            return CommandAnswer{_app.help()};
        } catch (const CLI::CallForVersion& version) {
            return CommandAnswer{std::string(version.what()) + "\n"};
        } catch (const CLI::ExtrasError&) {
            refuseUnknownOption();
        } catch (const CLI::ParseError& fault) {
            throw UsageError(fault.what());
        }
        checkTogether();
        return _options;
    }

private:
    void takeText(const char* names, std::optional<std::string>& value, const char* kind, const char* help) {
        _app.add_option(names, value, help)
            ->type_name(kind)
            ->multi_option_policy(CLI::MultiOptionPolicy::TakeLast)
            ->check([](const std::string& text) { return std::string(text.empty() ? "the name is empty" : ""); });
    }

    CLI::Option* takeFlag(const char* names, bool& value, const char* help) {
        return _app.add_flag(names, value, help)->multi_option_policy(CLI::MultiOptionPolicy::TakeLast);
    }

    [[noreturn]] void refuseUnknownOption() const {
        const std::vector<std::string> unknown = _app.remaining();
        const std::string typed = unknown.empty() ? std::string() : unknown.front();
        const std::string near = optionNear(_app, typed);
        throw UsageError(near.empty() ? fmt::format("unknown option '{}'", typed)
                                      : fmt::format("unknown option '{}'; did you mean '{}'?", typed, near));
    }

    void checkTogether() const {
        if (_options.bundles.empty() && !_options.inputList)
            throw UsageError("no bundle given");
    }

    CommandOptions _options;
    CLI::App _app;
};

} // namespace

std::variant<CommandOptions, CommandAnswer> parseCommandLine(std::span<const std::string> arguments) {
    const auto behindTheName = arguments.subspan(arguments.empty() ? 0 : 1);
    return CommandLine().parse({behindTheName.begin(), behindTheName.end()});
}

} // namespace brackwater
