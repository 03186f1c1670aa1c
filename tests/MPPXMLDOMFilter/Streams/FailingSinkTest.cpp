#include "StreamsTest.h"

#include "MPPXMLDOMFilter/Streams/MPP12AssignmentWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12ProjectPropsWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12RscWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12TaskWriter.h"
#include "MPPXMLDOMFilter/Streams/MPPCalendarWriters.h"
#include "MPPXMLDOMFilter/Streams/MPPConstraintWriters.h"
#include "MPPXMLDOMFilter/Streams/MPPSummaryInfoWriters.h"
#include "MPPXMLDOMFilter/Streams/MPPViewStorageWriters.h"
#include "support/LogCapture.h"

#include <algorithm>
#include <type_traits>

namespace brackwater::test {
namespace {

// A project with two of everything; each kind of writer writes it into a sink that fails at one call.
template <typename Writer>
class FailingSink : public StreamsTest {
protected:
    static constexpr bool kEntryIsStream =
        std::is_same_v<Writer, MPP12ProjectPropsWriter> || std::is_base_of_v<MPPSummaryInfoStreamWriter, Writer>;

    FailingSink() {
        MPPTask& task = addTask("a");
        MPPTask& other = addTask("b");
        addAssignment(&task, &addResource("r"));
        addAssignment(&other, &addResource("s"));
        addLink(&task, &other);
        addLink(&other, &task);
        project.baseCalendars = {std::make_shared<MPPCalendar>(), std::make_shared<MPPCalendar>()};
        project.customTaskFieldNames = {"alias"};
        preprocess();
    }

    [[nodiscard]] std::unique_ptr<Writer> newWriter() {
        return std::make_unique<Writer>(std::make_shared<MemoryWriter>(output, "e", kEntryIsStream),
                                        kEntryIsStream ? memoryStream(Bytes(16)) : memoryTemplate(templateStreams));
    }

    LogCapture log;
};

using Writers =
    testing::Types<MPP12TaskWriter, MPP12RscWriter, MPP12AssignmentWriter, MPP12CalendarWriter, MPP14CalendarWriter,
                   MPP12ConstraintWriter, MPP14ConstraintWriter, MPP12ProjectPropsWriter, MPP12ProjectSInfoWriter,
                   MPP12ProjectDocSInfoWriter, MPP12CViewWriter, MPP12CTableWriter, MPP12CEdlWriter>;
TYPED_TEST_SUITE(FailingSink, Writers);

TYPED_TEST(FailingSink, EveryFailedCallFailsTheEntryAtItsStream) {
    ASSERT_TRUE(this->newWriter()->writeDataForProject(&this->project));
    const MemoryOutput whole = *this->output;
    EXPECT_LE(whole.mostOpenStreams, 1) << "the compound file bears one open stream";
    ASSERT_GE(whole.calls, 1U);

    for (std::size_t call = 0; call < whole.calls; ++call) {
        this->output = std::make_shared<MemoryOutput>();
        this->output->failingCall = call;
        const auto writer = this->newWriter();
        EXPECT_FALSE(writer->writeDataForProject(&this->project)) << "call " << call;

        const std::string& failed = this->output->failedPath;
        const std::string name = failed.substr(failed.rfind('/') + 1);
        const std::string attempt = "WriteToStreamException: Attempt to write " + name;
        const bool copied = writer->failureReason() == attempt + " stream failed";
        EXPECT_TRUE(copied || writer->failureReason() == attempt + " failed") << writer->failureReason();
        // What stands in front of the failed stream was created, and nothing behind it.
        const auto end = std::find(whole.created.begin(), whole.created.end(), failed);
        const std::vector<std::string>& created = this->output->created;
        EXPECT_TRUE(std::equal(created.begin(), created.end(), whole.created.begin()));
        const auto before = static_cast<std::size_t>(end - whole.created.begin());
        EXPECT_TRUE(TestFixture::kEntryIsStream || created.size() == before || created.size() == before + 1);
        EXPECT_EQ(this->output->openStreams, TestFixture::kEntryIsStream ? 1 : 0) << "call " << call;
    }
}

TYPED_TEST(FailingSink, NoProjectAndASecondCallAreRefused) {
    EXPECT_FALSE(this->newWriter()->writeDataForProject(nullptr));
    EXPECT_EQ(this->output->calls, 0U);
    const auto writer = this->newWriter();
    EXPECT_TRUE(writer->writeDataForProject(&this->project));
    const std::size_t calls = this->output->calls;
    EXPECT_FALSE(writer->writeDataForProject(&this->project));
    EXPECT_EQ(this->output->calls, calls);
    EXPECT_FALSE(writer->failureReason().empty());
}

class StreamsCutShort : public StreamsTest {};

TEST_F(StreamsCutShort, AFailedWriteDoesNotStopTheStreamButIsRaisedAtItsEnd) {
    constexpr std::size_t kLetters = 140'000; // in UTF-16 each task fills a piece of 256 KiB of its own
    for (int i = 0; i < 4; ++i)
        addTask(std::string(kLetters, 't'));
    preprocess();
    ASSERT_TRUE(write<MPP12TaskWriter>());
    const Bytes whole = stream("Var2Data");

    output = std::make_shared<MemoryOutput>();
    output->failingCall = 2; // the second task's, behind the creation and the first task's
    EXPECT_FALSE(write<MPP12TaskWriter>());
    EXPECT_EQ(failureReason, "WriteToStreamException: Attempt to write Var2Data failed");
    EXPECT_EQ(output->created, std::vector<std::string>{"Var2Data"});
    const auto lost = static_cast<std::ptrdiff_t>(4 + 2 * kLetters + 2);
    Bytes expected = whole;
    expected.erase(expected.end() - 3 * lost, expected.end() - 2 * lost);
    EXPECT_EQ(stream("Var2Data"), expected) << "all but the lost piece";
}

TEST_F(StreamsCutShort, WhatWasCompleteReachesTheOutput) {
    addTask("first");
    addTask("second").baselines.assign(12, std::make_shared<MPPTaskBaseline>());
    preprocess();
    EXPECT_FALSE(write<MPP12TaskWriter>());
    // The header, the project's two records and the first task's; the second task's ten baselines are not complete.
    EXPECT_EQ(stream("VarMeta").size(), 24U + 3 * 12U);
}

} // namespace
} // namespace brackwater::test
