// Makes a bundle of any number of tasks, to measure exports with:
//   make-bundle SHAPE TASKS OUT.zelb
// Shapes: mixed (groups of 100 tasks, 10 groups a phase), wide (all tasks in one group), deep (a group in a group, 200
// levels at a time), chain (as mixed, each task linked to the one before), calendars (as mixed, a schedule for each of
// many resources). Every task has a link, an assignment and its place in a baseline, every tenth a note.
#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view kNamespace = "http://tarnwick.example/namespace/Tarnwick/v2";
constexpr std::int64_t kTasksPerGroup = 100;
constexpr std::int64_t kDeepLevels = 200;

class TextFile {
public:
    explicit TextFile(const std::string& path) : _file(std::fopen(path.c_str(), "w"), &std::fclose) {
        if (!_file)
            throw std::runtime_error("cannot write " + path);
    }
    template <typename... Args>
    void print(fmt::format_string<Args...> text, Args&&... args) {
        fmt::print(_file.get(), text, std::forward<Args>(args)...);
    }

private:
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> _file;
};

// One task of the outline: its number, its parent's number, and whether it is a group.
struct OutlineEntry {
    std::int64_t number;
    std::int64_t parent; // -1 for children of the top task
    bool isGroup;
};

std::vector<OutlineEntry> outlineOfShape(std::string_view shape, std::int64_t tasks) {
    std::vector<OutlineEntry> outline;
    outline.reserve(static_cast<std::size_t>(tasks));
    std::int64_t group = -1;
    for (std::int64_t number = 1; number <= tasks; ++number) {
        bool isGroup = false;
        std::int64_t parent = group;
        if (shape == "deep") {
            isGroup = number % kDeepLevels != 0;
            parent = number % kDeepLevels == 1 ? -1 : number - 1;
        } else if (shape != "wide" && number % kTasksPerGroup == 1 && tasks > kTasksPerGroup) {
            isGroup = true;
            group = number;
            parent = -1;
        }
        outline.push_back({number, parent, isGroup});
    }
    return outline;
}

// Day number since 2027-01-04 (a Monday) as a date; all work is on weekdays of four-week months, for simplicity.
std::string dateOfDay(std::int64_t day, int hour) {
    const std::int64_t month = day / 28;
    return fmt::format("{:04}-{:02}-{:02}T{:02}:00:00Z", 2027 + month / 12, month % 12 + 1, day % 28 + 1, hour);
}

void writeTask(TextFile& file, const OutlineEntry& entry, const std::vector<std::int64_t>& children,
               std::string_view shape, std::int64_t resources, bool isBaseline) {
    const std::int64_t day = entry.number % 2000;
    file.print("  <task id=\"t{}\">\n    <title>Task {}: lay out &amp; build</title>\n", entry.number, entry.number);
    if (entry.isGroup)
        file.print("    <type>group</type>\n");
    file.print("    <start-date>{}</start-date>\n    <end-date>{}</end-date>\n    <duration>28800</duration>\n"
               "    <effort>28800</effort>\n",
               dateOfDay(day, 8), dateOfDay(day, 17));
    if (!isBaseline) {
        file.print("    <effort-done>{}</effort-done>\n    <priority>{}</priority>\n", entry.number % 4 == 0 ? 7200 : 0,
                   entry.number % 10);
        if (entry.number % 10 == 0)
            file.print("    <note><text><p><run><lit>Note of task {}</lit></run></p><p><run><lit>Second "
                       "line</lit></run></p></text></note>\n",
                       entry.number);
    }
    if (!entry.isGroup && entry.number > 1) {
        const std::int64_t predecessor =
            shape == "chain" ? entry.number - 1 : std::max<std::int64_t>(1, entry.number / 2);
        if (shape != "deep" && (shape == "chain" || predecessor % kTasksPerGroup != 1))
            file.print(
                "    <prerequisite-task idref=\"t{}\" kind=\"FS\"><lead-time>3600</lead-time></prerequisite-task>\n",
                predecessor);
    }
    if (!entry.isGroup)
        file.print("    <assignment idref=\"r{}\" units=\"1\"/>\n", entry.number % resources + 1);
    for (const std::int64_t child : children)
        file.print("    <child-task idref=\"t{}\"/>\n", child);
    file.print("  </task>\n");
}

void writeSchedule(TextFile& file, std::int64_t number) {
    file.print("    <schedule>\n      <schedule-day day-of-week=\"friday\"><time-span start-time=\"28800\" "
               "end-time=\"43200\"/></schedule-day>\n      <calendar name=\"Away\" overtime=\"false\">\n"
               "        <event start=\"{}\" end=\"{}\"/>\n      </calendar>\n    </schedule>\n",
               dateOfDay(number % 300, 0), dateOfDay(number % 300 + 2, 0));
}

void writeScenario(const std::string& path, std::string_view shape, const std::vector<OutlineEntry>& outline,
                   std::int64_t resources, bool isBaseline) {
    TextFile file(path);
    file.print("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<scenario xmlns=\"{}\">\n  <top-resource idref=\"r-1\"/>\n"
               "  <top-task idref=\"t-1\"/>\n  <start-date>2027-01-04T08:00:00Z</start-date>\n",
               kNamespace);
    file.print("  <resource id=\"r-1\">\n    <type>Group</type>\n");
    for (std::int64_t number = 1; number <= resources; ++number)
        file.print("    <child-resource idref=\"r{}\"/>\n", number);
    file.print("  </resource>\n");
    for (std::int64_t number = 1; number <= resources; ++number) {
        file.print("  <resource id=\"r{}\">\n    <name>Resource {}</name>\n    <type>{}</type>\n"
                   "    <cost-per-hour>{}</cost-per-hour>\n",
                   number, number, number % 5 == 0 ? "Equipment" : "Staff", number % 90 + 10);
        if (shape == "calendars")
            writeSchedule(file, number);
        file.print("  </resource>\n");
    }

    std::vector<std::vector<std::int64_t>> children(outline.size() + 1);
    for (const auto& entry : outline)
        children[entry.parent < 0 ? 0 : static_cast<std::size_t>(entry.parent)].push_back(entry.number);
    file.print("  <task id=\"t-1\">\n    <title>Plan</title>\n    <type>group</type>\n    <start-date>{}</start-date>\n"
               "    <end-date>{}</end-date>\n    <duration>28800</duration>\n",
               dateOfDay(0, 8), dateOfDay(1999, 17));
    for (const std::int64_t child : children[0])
        file.print("    <child-task idref=\"t{}\"/>\n", child);
    file.print("  </task>\n");
    for (const auto& entry : outline)
        writeTask(file, entry, children[static_cast<std::size_t>(entry.number)], shape, resources, isBaseline);
    file.print("</scenario>\n");
}

void writeContents(const std::string& path) {
    TextFile file(path);
    file.print("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<contents>\n  <project>\n    <title>Large plan</title>\n"
               "    <currency-format>$1,234.56</currency-format>\n"
               "    <scenario id=\"s1\" filename=\"plan.xml\" name=\"Plan\"/>\n"
               "    <scenario id=\"s2\" filename=\"baseline.xml\" name=\"Baseline\"/>\n  </project>\n"
               "  <window>\n    <editing-scenario>s1</editing-scenario>\n"
               "    <comparison-scenario>s2</comparison-scenario>\n  </window>\n</contents>\n");
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        fmt::print(stderr, "usage: make-bundle mixed|wide|deep|chain|calendars TASKS OUT.zelb\n");
        return 2;
    }
    try {
        const std::string_view shape = argv[1];
        const std::int64_t tasks = std::strtoll(argv[2], nullptr, 10);
        const std::string folder = argv[3];
        const std::int64_t resources = shape == "calendars" ? std::max<std::int64_t>(1, tasks / 10)
                                                            : std::clamp<std::int64_t>(tasks / 100, 1, 1000);
        std::filesystem::create_directories(folder);
        const auto outline = outlineOfShape(shape, tasks);
        writeContents(folder + "/__TOC.xml");
        writeScenario(folder + "/plan.xml", shape, outline, resources, false);
        writeScenario(folder + "/baseline.xml", shape, outline, resources, true);
    } catch (const std::exception& exception) {
        fmt::print(stderr, "make-bundle: {}\n", exception.what());
        return 1;
    }
    return 0;
}
