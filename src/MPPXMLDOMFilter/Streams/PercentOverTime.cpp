#include "MPPXMLDOMFilter/Streams/PercentOverTime.h"

#include "MPPXMLDOMFilter/Streams/RowBuilder.h"

namespace brackwater {

namespace {

// Meanings unknown, written as found in real files.
constexpr std::uint16_t kMark = 4;

constexpr std::uint16_t kHeadSize = 16;
constexpr std::uint32_t kTenthsOfDay = 14400;
constexpr std::uint32_t kEndOfTime = 0x14B12AF7; // 2049-12-31 23:59

// Tenths of a minute since the format's day 0.
std::uint32_t tenthsOf(EncodedDate date) { return (date.bytes >> 16) * kTenthsOfDay + (date.bytes & 0xFFFF); }

} // namespace

void writePercentOverTime(MPPData& data, const std::vector<MPPProgressPoint>& points, DateEncoder& dates) {
    RowBuilder<kHeadSize> head;
    head.at(0).lowWord(points.size());
    head.at(2).word(kMark);
    head.at(4).integer(kHeadSize);
    head.at(8).zeroes(8);
    head.end(data);
    for (const MPPProgressPoint& point : points) {
        RowBuilder<20> row;
        row.at(0).integer(point.isBegin ? 1 : 0);
        row.at(4).integer(0);
        row.at(8).real(point.percent);
        row.at(16).integer(point.moment ? tenthsOf(dates(point.moment)) : kEndOfTime);
        row.end(data);
    }
}

} // namespace brackwater
