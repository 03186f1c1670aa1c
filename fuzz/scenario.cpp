// Arbitrary bytes as a scenario document.
#include "MappedScenario.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brackwater;
    const fuzz::SilentLog silent;
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): bytes as text
    fuzz::mapScenario({reinterpret_cast<const char*>(data), size}, fuzz::kContents, {});
    return 0;
}
