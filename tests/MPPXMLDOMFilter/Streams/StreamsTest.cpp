#include "StreamsTest.h"

#include "MPPXMLDOMFilter/Streams/MPP12AssignmentWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12RscWriter.h"
#include "MPPXMLDOMFilter/Streams/MPP12TaskWriter.h"
#include "MPPXMLDOMFilter/Streams/MPPCalendarWriters.h"

#include <fmt/format.h>

#include <cstdlib>

namespace brackwater::test {

Date dateAt(int days, int tenths) { return {441676800.0 + days * 86400.0 + tenths * 6.0}; }

StreamsTest::StreamsTest() { setenv("TZ", "UTC", 1); }

MPPTask& StreamsTest::addTask(const std::string& title, MPPTask* parent) {
    auto task = std::make_shared<MPPTask>();
    task->title = title;
    task->parent = parent;
    task->ID = project.tasks.size() + 1;
    project.tasks.push_back(task);
    return *task;
}

MPPResource& StreamsTest::addResource(const std::string& name) {
    auto resource = std::make_shared<MPPResource>();
    resource->name = name;
    resource->ID = project.resources.size() + 1;
    project.resources.push_back(resource);
    return *resource;
}

MPPAssignment& StreamsTest::addAssignment(MPPTask* task, MPPResource* resource) {
    auto assignment = std::make_shared<MPPAssignment>();
    assignment->task.setRecord(task);
    assignment->resource.setRecord(resource);
    assignment->ID = project.assignments.size() + 1;
    project.assignments.push_back(assignment);
    return *assignment;
}

MPPConstraint& StreamsTest::addLink(MPPTask* from, MPPTask* to) {
    auto link = std::make_shared<MPPConstraint>();
    link->task1.setRecord(from);
    link->task2.setRecord(to);
    link->ID = project.constraints.size() + 1;
    project.constraints.push_back(link);
    return *link;
}

void StreamsTest::preprocess() {
    MPP12TaskWriter::preprocessProject(project);
    MPP12RscWriter::preprocessProject(project);
    MPP12AssignmentWriter::preprocessProject(project);
    MPP12CalendarWriter::preprocessProject(project);
}

const Bytes& StreamsTest::stream(const std::string& name) const {
    static const Bytes kNone;
    const auto found = output->streams.find(name);
    if (found != output->streams.end())
        return found->second;
    ADD_FAILURE() << "no stream " << name;
    return kNone;
}

std::vector<VarMetaRecord> varMetaRecords(const Bytes& varMeta, const Bytes& var2Data,
                                          std::uint16_t descriptionEnding) {
    const std::size_t count = integerAt(varMeta, 8);
    EXPECT_TRUE(sameBytes(slice(varMeta, 0, 24),
                          ByteImage(24).integer(0, 0xFADFADBA).integer(8, count).integer(20, var2Data.size())));
    EXPECT_EQ(varMeta.size(), 24 + 12 * count);
    std::vector<VarMetaRecord> records;
    for (std::size_t offset = 24; offset + 12 <= varMeta.size(); offset += 12) {
        EXPECT_EQ(wordAt(varMeta, offset + 10), descriptionEnding);
        const std::size_t element = integerAt(varMeta, offset + 4);
        const std::size_t size = integerAt(var2Data, element);
        records.push_back(
            {integerAt(varMeta, offset), wordAt(varMeta, offset + 8), slice(var2Data, element + 4, size)});
    }
    return records;
}

std::string idsAndTypes(const std::vector<VarMetaRecord>& records) {
    std::string text;
    for (const VarMetaRecord& record : records)
        text += fmt::format("{}{}:{}", text.empty() ? "" : " ", record.id, record.type);
    return text;
}

Bytes metaRecord(const Bytes& meta, std::size_t recordSize, std::size_t index) {
    EXPECT_EQ(integerAt(meta, 0), 0xFADFADBAU);
    EXPECT_EQ(integerAt(meta, 4), 4U);
    EXPECT_EQ(meta.size(), 16 + recordSize * integerAt(meta, 8));
    return slice(meta, 16 + recordSize * index, recordSize);
}

} // namespace brackwater::test
