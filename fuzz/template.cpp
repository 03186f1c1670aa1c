// Arbitrary bytes as the template of a default project.
#include "FuzzSupport.h"
#include "LibraryLeaks.h"

#include "MPPXMLDOMFilter/Container/CompoundFileLibrary.h"
#include "MPPXMLDOMFilter/Model/MPPProject.h"
#include "MPPXMLDOMFilter/Walk/MPPProjectWriter.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brackwater;
    static const fuzz::ScratchFolder kFolder;
    static const CompoundFileLibrary kLibrary;
    const fuzz::SilentLog silent;

    const std::string templatePath = kFolder.file("template.mpp");
    const std::string outputPath = kFolder.file("output.mpp");
    fuzz::writeFile(templatePath, {data, size});
    MPPProject project;
    MPPWriteFailure failure;
    MPPProjectWriter::writeProject(&project, FileURL::fileURLWithPath(outputPath, false),
                                   FileURL::fileURLWithPath(templatePath, false), &failure);
    std::filesystem::remove(outputPath);
    return 0;
}
