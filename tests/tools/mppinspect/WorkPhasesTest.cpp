#include "FileImage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace brackwater::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr unsigned kMonday = 15'402; // 2026-03-02
constexpr unsigned kHour = 60 * 80;  // times of the blocks

struct Entry {
    double hours;
    bool works;
    unsigned hoursGone;
};

// One assignment of a task from Monday at 8:00 to Friday of the week after, of eight hours a day.
class WorkOverTime : public testing::Test {
protected:
    WorkOverTime() {
        std::erase_if(_file.properties, [](const auto& property) { return property.first == 0x00020017; });
        _file.properties.emplace_back(0x00020017, MapImage()
                                                      .fixed(0, 0, MapImage::kNumber32)
                                                      .fixed(4, 1, MapImage::kNumber32)
                                                      .fixed(8, 20, MapImage::kDate)
                                                      .fixed(12, 21, MapImage::kDate)
                                                      .fixed(16, 24, MapImage::kDate)
                                                      .fixed(20, 264, MapImage::kDate)
                                                      .variable(49)
                                                      .variable(50)
                                                      .bytes());
        resumeAt(kMonday, 4800);
    }

    void resumeAt(unsigned day, unsigned tenths) {
        _row.integer(0, 1).integer(4, 6).date(8, 4800, kMonday).date(12, 10200, kMonday + 11);
        _row.date(16, tenths, day).date(20, 4800, kMonday);
    }

    static ByteImage left(const std::vector<Entry>& entries) {
        ByteImage block(44);
        block.word(0, entries.size());
        for (std::size_t i = 0; i < entries.size(); ++i)
            block.real(44 + i * 28, entries[i].hours * 60'000)
                .real(52 + i * 28, entries[i].works ? 160'000 : 0)
                .integer(68 + i * 28, entries[i].hoursGone * kHour);
        return block;
    }
    static ByteImage done(const std::vector<Entry>& entries) {
        ByteImage block(36);
        block.word(0, entries.size());
        for (std::size_t i = 0; i < entries.size(); ++i)
            block.real(36 + i * 20, entries[i].hours * 60'000)
                .real(44 + i * 20, entries[i].works ? 10'000 : 0)
                .integer(52 + i * 20, entries[i].hoursGone * kHour);
        return block;
    }

    inspect::ProjectFile decoded(const ByteImage& planned, const ByteImage& complete) {
        _file["TBkndAssn"].row(_row, ByteImage()).element(1, 49, planned.bytes()).element(1, 50, complete.bytes());
        return _file.decoded();
    }
    static std::vector<std::string> textsOf(const std::vector<inspect::Piece>& pieces) {
        std::vector<std::string> texts;
        for (const inspect::Piece& piece : pieces)
            texts.push_back(textOf(piece.start) + " to " + textOf(piece.finish));
        return texts;
    }

    FileImage _file;
    ByteImage _row{24};
};

TEST_F(WorkOverTime, IsInterruptedByPhasesWithoutWork) {
    const auto project = decoded(left({{10, true, 10}, {10, false, 26}, {50, true, 66}}), done({}));
    const inspect::Assignment& assignment = project.assignments.at(0);
    ASSERT_EQ(assignment.remaining.size(), 3U);
    EXPECT_EQ(assignment.remaining[0].units, 10'000);
    EXPECT_EQ(assignment.remaining[2].work, 40 * 60'000);
    EXPECT_EQ(assignment.remaining[2].tenths, 40 * 600);
    EXPECT_THAT(textsOf(assignment.pieces),
                ElementsAre("2026-03-02 08:00 to 2026-03-03 10:00", "2026-03-05 10:00 to 2026-03-13 17:00"));
}

TEST_F(WorkOverTime, BeginsBehindAPhaseWithoutWork) {
    const auto project = decoded(left({{0, false, 2}, {50, true, 52}}), done({}));
    EXPECT_THAT(textsOf(project.assignments[0].pieces), ElementsAre("2026-03-02 10:00 to 2026-03-13 17:00"));
}

TEST_F(WorkOverTime, ThatIsLeftGoesOnWhereTheAssignmentIsResumed) {
    resumeAt(kMonday + 3, 4800);
    const auto project =
        decoded(left({}).real(8, 160'000).real(16, 16 * 60'000).integer(24, 16 * kHour), done({{8, true, 8}}));
    EXPECT_EQ(project.assignments[0].remaining.at(0).work, 16 * 60'000);
    EXPECT_THAT(textsOf(project.assignments[0].pieces),
                ElementsAre("2026-03-02 08:00 to 2026-03-02 17:00", "2026-03-05 08:00 to 2026-03-13 17:00"));
}

TEST_F(WorkOverTime, OfSeveralAssignmentsMakesThePiecesOfTheTask) {
    _file["TBkndTask"].headers(3, 4).row(ByteImage(4).integer(0, 6), ByteImage(4));
    std::erase_if(_file.properties, [](const auto& property) { return property.first == 0x00020014; });
    _file.properties.emplace_back(0x00020014, MapImage().fixed(0, 86, MapImage::kNumber32).bytes());
    ByteImage other = _row;
    other.integer(0, 2).date(8, 6000, kMonday + 1).date(12, 10200, kMonday + 1);
    _file["TBkndAssn"].row(other, ByteImage()).element(2, 49, left({}).bytes());
    const auto project = decoded(left({{10, true, 10}, {10, false, 26}, {50, true, 66}}), done({}));
    EXPECT_THAT(textsOf(project.tasks.at(0).pieces),
                ElementsAre("2026-03-02 08:00 to 2026-03-03 17:00", "2026-03-05 10:00 to 2026-03-13 17:00"));
}

TEST_F(WorkOverTime, ThatIsCutOffOrRunsBackwardsIsTold) {
    const auto project = decoded(left({{10, true, 10}}).word(0, 9), done({{8, true, 8}, {9, true, 7}}));
    EXPECT_EQ(project.assignments[0].remaining.size(), 1U);
    EXPECT_EQ(project.assignments[0].complete.size(), 1U);
    EXPECT_THAT(project.complaints.lines(),
                Contains("TBkndAssn/Var2Data: a block of work over time is cut off: assignment 1"));
    EXPECT_THAT(project.complaints.lines(),
                Contains("TBkndAssn/Var2Data: a block of work over time goes back in time, or tells no number: "
                         "assignment 1"));
}

TEST_F(WorkOverTime, BeyondTheLastDayLeavesTheAssignmentWhole) {
    const auto project = decoded(left({{10, true, 10}, {10, false, 440'000}, {50, true, 440'001}}), done({}));
    EXPECT_THAT(textsOf(project.assignments[0].pieces), ElementsAre("2026-03-02 08:00 to 2026-03-13 17:00"));
}

} // namespace
} // namespace brackwater::test
