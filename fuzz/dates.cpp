// Arbitrary texts as dates and durations, through every conversion.
#include "FuzzSupport.h"

#include "Platform/Values/Exception.h"
#include "TWMSPCommon/MSPImportMapper/MSPIUtilities.h"

#include <string_view>

namespace {

template <typename Conversion>
void attempt(Conversion conversion) {
    try {
        conversion();
    } catch (const brackwater::Exception&) {
        // The failure that a text which does not read ends in.
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brackwater;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes as text
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    attempt([&] { (void)MSPIUtilities::mppToZelbDateTime(MSPIUtilities::zelbToMppDateTime(text)); });
    attempt([&] { (void)MSPIUtilities::mppToMspdiDateTime(MSPIUtilities::mspdiToMppDateTime(text)); });
    attempt([&] { (void)MSPIUtilities::zelbToMspdiDateTime(text); });
    attempt([&] { (void)MSPIUtilities::zelbToMspdiDateStartTime(text); });
    attempt([&] { (void)MSPIUtilities::zelbToMspdiDateEndTime(text); });
    attempt([&] { (void)MSPIUtilities::mspdiToZelbDateTime(text); });
    attempt([&] { (void)MSPIUtilities::mspdiToZelbTimeOnly(text); });
    attempt([&] { (void)MSPIUtilities::mspdiDateTimeToString(text); });
    attempt([&] { (void)MSPIUtilities::mspdiDurationInSecs(text); });
    attempt([&] { (void)MSPIUtilities::mspdiToMppDuration(text); });
    attempt([&] { (void)MSPIUtilities::zelbToMspdiDuration(text); });
    attempt([&] { (void)MSPIUtilities::isoDateTimeAdvanceByZelbDuration(text, "36000", size % 2 == 0, nullptr); });
    attempt([&] { (void)MSPIUtilities::isMspdiDuration(text); });
    return 0;
}
