// Arbitrary bytes as the template's stream of project properties.
#include "FuzzSupport.h"

#include "MPPXMLDOMFilter/Container/CompoundFileLibrary.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "MPPXMLDOMFilter/Streams/MPP12ProjectPropsWriter.h"
#include "support/MemoryTemplate.h"
#include "support/MemoryWriter.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brackwater;
    static const CompoundFileLibrary kLibrary;
    const fuzz::SilentLog silent;
    if (size == 0)
        return 0;

    MPPProject project;
    project.title = "Plan";
    auto output = std::make_shared<test::MemoryOutput>();
    MPP12ProjectPropsWriter writer(std::make_shared<test::MemoryWriter>(output, "Props", true),
                                   test::memoryStream(test::Bytes(data, data + size)));
    writer.writeDataForProject(&project);
    return 0;
}
