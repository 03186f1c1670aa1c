#include "CommandLine.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>

namespace brackwater::inspect {

namespace {

struct SectionOption {
    const char* name;
    Section section;
    const char* help;
};

constexpr std::array kSectionOptions{
    SectionOption{"--summary", Section::Summary, "how much of everything there is"},
    SectionOption{"--entries", Section::Entries, "storages and streams with their sizes"},
    SectionOption{"--properties", Section::Properties, "properties of the project and the summary streams"},
    SectionOption{"--tasks", Section::Tasks, "tasks with their text fields, baselines and notes"},
    SectionOption{"--resources", Section::Resources, "resources likewise"},
    SectionOption{"--assignments", Section::Assignments, "assignments"},
    SectionOption{"--links", Section::Links, "links between tasks"},
    SectionOption{"--calendars", Section::Calendars, "calendars with their weeks, exceptions and work weeks"},
    SectionOption{"--complaints", Section::Complaints, "what does not fit in the file"},
};

std::uint16_t currentDay() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return dayOfText(fmt::format("{:04}-{:02}-{:02}", local.tm_year + 1900, local.tm_mon + 1, local.tm_mday))
        .value_or(0);
}

// The texts of options that CLI11 reads as they are; their values follow when all is read.
struct Texts {
    std::string scale, from, to, today;
};

std::uint16_t dayOf(const char* option, const std::string& text) {
    const auto day = dayOfText(text);
    if (!day)
        throw CLI::ValidationError(option, fmt::format("'{}' is no day such as 2027-03-01", text));
    return *day;
}

void takeGanttOptions(const Texts& texts, GanttOptions& options) {
    if (!texts.scale.empty())
        options.scale = scaleStepOf(texts.scale);
    if (!texts.from.empty())
        options.from = dayOf("--from", texts.from);
    if (!texts.to.empty())
        options.to = dayOf("--to", texts.to);
    if (options.from && options.to && *options.from > *options.to)
        throw CLI::ValidationError("--from", "the first day is behind the last one");
    options.today = texts.today.empty() ? currentDay() : dayOf("--today", texts.today);
}

/// Shows an option with the name of its value alone: what excludes what is told where somebody breaks it.
class PlainFormatter : public CLI::Formatter {
public:
    [[nodiscard]] std::string make_option_opts(const CLI::Option* option) const override {
        const std::string type = option->get_type_name();
        return type.empty() || option->get_positional() ? "" : " " + type.substr(0, type.find(':'));
    }
};

/// The options and what they have in common.
class Parser {
public:
    Parser() : _app("Shows what a Microsoft Project file holds; without an option everything, as text.", "mppinspect") {
        _app.formatter(std::make_shared<PlainFormatter>());
        _app.set_version_flag("--version", "mppinspect " BRACKWATER_VERSION, "show the version");
        _app.set_help_flag("--help", "show this text");
        _app.add_option("FILE.mpp", _arguments.path, "the project file")->required();
        for (const SectionOption& option : kSectionOptions)
            _sections.push_back(_app.add_flag(option.name, option.help)->group("What is shown"));
        addForms();
        addGantt();
        auto* check =
            _app.add_flag("--check", _arguments.check, "whether a template suits, or what a planner would stumble over")
                ->group("Instead of it");
        for (CLI::Option* other : _sections)
            check->excludes(other);
        check->excludes(_csv)->excludes(_gantt);
        for (CLI::Option* option : _app.get_options())
            if (option->get_items_expected_max() == 0)
                option->disable_flag_override(); // a flag takes no value
    }

    CommandLine parse(int argc, const char* const* argv) {
        try {
            _app.parse(argc, argv);
            takeSections();
            takeGanttOptions(_texts, _arguments.gantt);
            return {_arguments, {}, kDone};
        } catch (const CLI::CallForHelp&) {
            return {std::nullopt, _app.help(), kDone};
        } catch (const CLI::CallForVersion& version) {
            return {std::nullopt, fmt::format("{}\n", version.what()), kDone};
        } catch (const CLI::RequiredError& error) {
            // A word that is not understood may be what keeps the file from being found.
            const std::vector<std::string> unknown = _app.remaining();
            return refusal(unknown.empty() ? error.what() : CLI::ExtrasError(unknown).what());
        } catch (const CLI::Error& error) {
            return refusal(error.what());
        }
    }

private:
    static CommandLine refusal(std::string_view reason) {
        return {std::nullopt, fmt::format("{}; see mppinspect --help", reason), kWrongArguments};
    }

    void addForms() {
        constexpr const char* group = "How it is shown";
        _csv = _app.add_flag("--csv", _isCsv, "one table as comma-separated values")->group(group);
        _json = _app.add_flag("--json", _isJson, "as JSON, for programs")->group(group);
        _app.add_option("--width", _arguments.width, "of tables, in characters; 0: no bound; else the terminal's")
            ->check(CLI::Range(0, 100'000))
            ->type_name("N")
            ->group(group);
        _csv->excludes(_json);
    }

    void addGantt() {
        constexpr const char* group = "Instead of it";
        _gantt =
            _app.add_option("--gantt", _arguments.page, "the plan as a page with a bar chart; '-': standard output")
                ->type_name("OUT.html")
                ->group(group);
        const auto add = [this](CLI::Option* option) { option->needs(_gantt)->group("Of the page"); };
        add(_app.add_flag("--force", _arguments.force, "replace a file that is no page of this program"));
        add(_app.add_option("--scale", _texts.scale, "days, weeks, months, quarters or years")
                ->check(CLI::IsMember({"days", "weeks", "months", "quarters", "years"}))
                ->type_name("STEP"));
        add(_app.add_option("--from", _texts.from, "first day, as 2027-03-01")->type_name("DAY"));
        add(_app.add_option("--to", _texts.to, "last day")->type_name("DAY"));
        add(_app.add_option("--today", _texts.today, "where today's line stands")->type_name("DAY"));
        _gantt->excludes(_csv)->excludes(_json);
        for (CLI::Option* section : _sections)
            _gantt->excludes(section);
    }

    void takeSections() {
        for (const CLI::Option* given : _app.parse_order()) {
            const auto option = std::ranges::find(_sections, given);
            if (option == _sections.end())
                continue;
            const Section section = kSectionOptions.at(static_cast<std::size_t>(option - _sections.begin())).section;
            if (std::ranges::find(_arguments.sections, section) == _arguments.sections.end())
                _arguments.sections.push_back(section);
        }
        if (_isCsv && _arguments.sections.size() != 1)
            throw CLI::ValidationError("--csv", "names one table, such as --tasks --csv");
        if (_isCsv)
            _arguments.form = Form::Csv;
        if (_isJson)
            _arguments.form = Form::Json;
        if (_arguments.sections.empty())
            _arguments.sections.assign(kAllSections.begin(), kAllSections.end());
    }

    CLI::App _app;
    Arguments _arguments;
    Texts _texts;
    bool _isCsv = false, _isJson = false;
    std::vector<CLI::Option*> _sections; ///< in the order of their table
    CLI::Option *_csv = nullptr, *_json = nullptr, *_gantt = nullptr;
};

} // namespace

CommandLine parseCommandLine(int argc, const char* const* argv) { return Parser().parse(argc, argv); }

} // namespace brackwater::inspect
