#include "ProjectFile.h"

#include "Decoders.h"

#include <fmt/format.h>

namespace brackwater::inspect {

namespace {

constexpr std::string_view kCompObj = "\x01"
                                      "CompObj";
constexpr std::string_view kSummary = "\x05"
                                      "SummaryInformation";
constexpr std::string_view kDocumentSummary = "\x05"
                                              "DocumentSummaryInformation";
constexpr std::string_view kRootProps = "Props12";
constexpr std::uint32_t kProtection = 0x35400000;

void readCompObj(const CompoundFile& file, ProjectFile& project) {
    const auto stream = file.read({kCompObj}, project.complaints);
    if (!stream)
        return project.complaints.add("CompObj", "the stream is missing: the kind of document is unknown");
    const ByteView bytes(*stream);
    constexpr std::size_t head = 28, textsKept = 3;
    std::size_t offset = head;
    for (std::size_t i = 0; i < textsKept; ++i) {
        const auto length = bytes.u32(offset);
        if (!length || !bytes.has(offset + 4, *length))
            return project.complaints.add("CompObj", "a text runs past the end of the stream");
        project.compObj.push_back(bytes.part(offset + 4, *length).text8(1252));
        offset += 4 + std::size_t{*length};
    }
}

void readSummaries(const CompoundFile& file, ProjectFile& project) {
    if (const auto stream = file.read({kSummary}, project.complaints))
        project.summary = readPropertySet(*stream, "SummaryInformation", project.complaints);
    if (const auto stream = file.read({kDocumentSummary}, project.complaints))
        project.documentSummary = readPropertySet(*stream, "DocumentSummaryInformation", project.complaints);
}

void checkProtection(const CompoundFile& file, ProjectFile& project) {
    const auto stream = file.read({kRootProps}, project.complaints);
    if (!stream)
        return project.complaints.add("Props12", "the stream is missing: readers refuse the file");
    const PropsFrame props(*stream, "Props12", project.complaints);
    if (const std::uint8_t protection = props.payload(kProtection).u8(0).value_or(0); protection != 0)
        project.complaints.add("Props12", (protection & 1) != 0 ? "the file is protected by a password"
                                                                : "some streams of the file are scrambled");
}

std::string versionFolder(const CompoundFile& file, Complaints& complaints) {
    for (const std::string_view folder : {"   112", "   114"})
        if (file.has({folder})) {
            if (folder == "   112" && !file.has({"   212"}))
                complaints.add("212", "the storage of views is missing: readers refuse the file");
            return std::string(folder);
        }
    complaints.add("112", "the storage is missing: there is no project to read");
    return {};
}

} // namespace

std::string kindText(ResourceKind kind) {
    switch (kind) {
    case ResourceKind::Work:
        return "work";
    case ResourceKind::Material:
        return "material";
    case ResourceKind::Cost:
        return "cost";
    }
    return {};
}

std::string otherFormat(const ProjectFile& project) {
    constexpr std::size_t format = 1;
    constexpr std::string_view product = "MSProject.";
    if (project.compObj.size() <= format || !project.compObj[format].starts_with(product))
        return {};
    const std::string& name = project.compObj[format];
    const std::size_t digits = name.find_last_not_of("0123456789") + 1;
    if (digits == name.size() || name.size() - digits > 2 || name.ends_with("12"))
        return {};
    constexpr int ours = 12;
    return fmt::format("of Microsoft Project {} ({})",
                       std::stoi(name.substr(digits)) < ours ? "2003 or earlier" : "2010 or later", name);
}

ProjectFile decode(const CompoundFile& file, Extent extent) {
    ProjectFile project;
    if (extent == Extent::All)
        project.entries = file.entries(project.complaints);
    readCompObj(file, project);
    readSummaries(file, project);
    checkProtection(file, project);
    project.folder = versionFolder(file, project.complaints);
    if (project.folder.empty())
        return project;
    const auto propsStream = file.read({project.folder, "Props"}, project.complaints);
    if (!propsStream)
        project.complaints.add("Props", "the stream is missing");
    const PropsFrame props = propsStream ? PropsFrame(*propsStream, "Props", project.complaints) : PropsFrame();
    const DecodeContext context{file, props, project};
    decodeProperties(context, extent);
    decodeTasks(context);
    decodeCalendars(context);
    decodeResources(context);
    decodeAssignments(context);
    decodeLinks(context);
    return project;
}

} // namespace brackwater::inspect
