#pragma once

#include "loss-report/LossKinds.h"
#include "loss-report/LossReport.h"
#include "loss-report/PlanMatch.h"
#include "loss-report/WallClock.h"

namespace brackwater::lossreport {

/// The object that a value belongs to.
struct Subject {
    std::string_view object, id, name;
};

/// A bundle and its file, and the list of their differences.
class Comparison {
public:
    Comparison(const SourcePlan& source, const inspect::ProjectFile& mpp)
        : plan(source), file(mpp), match(source, mpp) {}

    const SourcePlan& plan;
    const inspect::ProjectFile& file;
    const PlanMatch match;
    /// Seconds in the baseline for each resource of the main document, summed over the tasks.
    std::unordered_map<std::string_view, double> baselineEfforts;

    void add(const Subject& subject, Kind kind, std::string_view field, std::string source, std::string inFile);

    // Each compares one value and adds a loss if the file differs. `otherwise` is the reason if no general one applies.

    void text(const Subject& subject, std::string_view field, std::string_view source, std::string_view inFile,
              Kind otherwise = Kind::Unexplained);
    void date(const Subject& subject, std::string_view field, const SourceDate& source,
              const std::optional<inspect::Date>& inFile, Kind otherwise = Kind::Unexplained);
    /// Compares seconds with tenths of a minute.
    void duration(const Subject& subject, std::string_view field, double seconds, const inspect::Duration& inFile,
                  Kind otherwise = Kind::Unexplained);
    /// Compares seconds with thousandths of a minute.
    void work(const Subject& subject, std::string_view field, double seconds, double inFile,
              Kind otherwise = Kind::Unexplained);
    /// Compares a number with one in units of 1/`scale`.
    void number(const Subject& subject, std::string_view field, double source, double inFile, double scale,
                Kind otherwise = Kind::Unexplained);
    void note(const Subject& subject, const std::optional<SourceNote>& source, std::string_view inFile);
    void fields(const Subject& subject, const SourceFields& source, const inspect::TextFields& inFile,
                const std::map<std::size_t, std::string>& names);

    /// The local time of a date-time; nothing if it is missing or unparsable.
    [[nodiscard]] std::optional<WallTime> wallTime(const SourceDate& date) const {
        return date ? _clock.read(*date) : std::nullopt;
    }
    [[nodiscard]] const WallClock& clock() const noexcept { return _clock; }
    [[nodiscard]] LossReport takeReport() { return std::move(_report); }

private:
    void field(const Subject& subject, std::string_view key, std::string_view value, std::size_t position,
               const inspect::TextFields& inFile, const std::map<std::size_t, std::string>& names);

    WallClock _clock;
    LossReport _report;
};

/// Seconds in thousandths of a minute.
[[nodiscard]] constexpr double workOfSeconds(double seconds) noexcept { return seconds / 60 * 1000; }
/// Whether two numbers are equal except for rounding errors.
[[nodiscard]] bool isSameNumber(double one, double other) noexcept;
/// Whether two work values are equal except for rounding errors.
[[nodiscard]] bool isSameWork(double one, double other) noexcept;
/// "2.5 h"
[[nodiscard]] std::string hoursText(double seconds);
[[nodiscard]] std::string hoursOfWork(double thousandthsOfMinutes);
/// "2026-03-02 08:00", or "none".
[[nodiscard]] std::string textOf(const std::optional<WallTime>& time);

// The parts of the comparison, in the order of the report.

void compareProject(Comparison& comparison);
void compareTasks(Comparison& comparison);
void compareResources(Comparison& comparison);
void compareCalendars(Comparison& comparison);

} // namespace brackwater::lossreport
