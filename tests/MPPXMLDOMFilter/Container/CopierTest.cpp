#include "MPPXMLDOMFilter/Container/MPPWriter.h"
#include "Platform/Values/Exception.h"
#include "support/CompoundFile.h"
#include "support/ExpectException.h"
#include "support/MemoryTemplate.h"
#include "support/MemoryWriter.h"

#include <gtest/gtest.h>

namespace brackwater::test {
namespace {

/// Gives tests access to the base class functions for stream writers.
class Copier : public MPPWriter {
public:
    using MPPWriter::copyChildFromTemplate;
    using MPPWriter::MPPWriter;
};

/// One entry of a template in memory, and a sink for it.
struct Entry {
    explicit Entry(std::shared_ptr<MPPFormatReader> node, bool isStream = false)
        : copier(std::make_shared<MemoryWriter>(output, "Entry", isStream), std::move(node)) {}

    std::shared_ptr<MemoryOutput> output = std::make_shared<MemoryOutput>();
    Copier copier;
};

TEST(Copier, CopiesAStream) {
    for (const std::size_t size : {0U, 1U, 4095U, 4096U, 70000U}) {
        Entry entry(memoryTemplate({{"S", patternBytes(size)}})->createReaderForChildAtIndex(0), true);
        EXPECT_TRUE(entry.copier.writeDataForProject(nullptr));
        EXPECT_EQ(entry.output->streams.at("Entry"), patternBytes(size));
    }
}

TEST(Copier, FailsForAStreamThatWasAlreadyRead) {
    const std::shared_ptr<MPPFormatReader> stream =
        memoryTemplate({{"S", patternBytes(50)}})->createReaderForChildAtIndex(0);
    ASSERT_TRUE(stream->readAll());
    Entry entry(stream, true);
    EXPECT_FALSE(entry.copier.writeDataForProject(nullptr));
    EXPECT_EQ(entry.copier.failureReason(), "the stream 'S' cannot be read from the template");
}

TEST(Copier, CopiesANamedChildOrRaises) {
    const std::map<std::string, Bytes> streams = {{"VarMeta", patternBytes(30)}, {"Inner/X", {}}};
    {
        Entry entry(memoryTemplate(streams));
        entry.copier.copyChildFromTemplate("VarMeta");
        EXPECT_EQ(entry.output->streams.at("Entry/VarMeta"), patternBytes(30));
        expectException(kReadFromStreamException, "Attempt to read Props stream failed",
                        [&] { entry.copier.copyChildFromTemplate("Props"); });
        expectException(kWriteToStreamException, "Attempt to write Inner stream failed",
                        [&] { entry.copier.copyChildFromTemplate("Inner"); });
    }
    for (std::size_t failing = 0; failing < 3; ++failing) { // creation, write and close
        Entry entry(memoryTemplate(streams));
        entry.output->failingCall = failing;
        expectException(kWriteToStreamException, "Attempt to write VarMeta stream failed",
                        [&] { entry.copier.copyChildFromTemplate("VarMeta"); });
    }
}

TEST(Flush, ClearsTheBufferEvenIfTheWriteFails) {
    const auto output = std::make_shared<MemoryOutput>();
    MemoryWriter sink(output, "S", true);
    MPPData data;
    data.writeInteger(1);
    EXPECT_TRUE(MPPWriter::flushData(data, sink));
    EXPECT_TRUE(MPPWriter::flushData(data, sink)); // the last flush of an empty buffer
    output->failingCall = output->calls;
    data.writeInteger(2);
    EXPECT_FALSE(MPPWriter::flushData(data, sink));
    EXPECT_EQ(data.dataSize(), 0U);
    EXPECT_EQ(data.cumulativeDataSize(), 8U);
    EXPECT_EQ(output->streams.at("S"), (Bytes{1, 0, 0, 0}));
}

} // namespace
} // namespace brackwater::test
