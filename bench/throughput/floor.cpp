// The floor that an export is measured against: parses the same documents with libxml2, writes streams of the same
// names and sizes with libgsf, writes as many log bytes, and does nothing else.
//   floor tree|events SHAPE OUT.mpp LOG_BYTES DOCUMENT...
// "tree" lets libxml2 build its trees, "events" parses without any: the limit of what an export can reach.
// SHAPE is a text file, a line an entry: "d NAME" begins a storage, "u" ends it, "s SIZE NAME" is a stream.
#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-outfile.h>
#include <gsf/gsf-output-stdio.h>
#include <gsf/gsf-utils.h>
#include <libxml/parser.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t kPiece = 65536;

bool parseIntoTree(const char* path) {
    xmlDocPtr document = xmlReadFile(path, nullptr, XML_PARSE_NONET | XML_PARSE_COMPACT);
    // Kept to the end, as an export keeps its documents while it reads them.
    return document != nullptr;
}

// The callbacks take what the parser hands over, attributes and texts included, and do nothing with it.
bool parseEvents(const char* path) {
    xmlSAXHandler handler{};
    handler.initialized = XML_SAX2_MAGIC;
    handler.startElementNs = [](void*, const xmlChar*, const xmlChar*, const xmlChar*, int, const xmlChar**, int, int,
                                const xmlChar**) {};
    handler.endElementNs = [](void*, const xmlChar*, const xmlChar*, const xmlChar*) {};
    handler.characters = [](void*, const xmlChar*, int) {};
    return xmlSAXUserParseFile(&handler, nullptr, path) == 0;
}

void writeStream(GsfOutfile* parent, const std::string& name, std::uint64_t size) {
    static const std::vector<guint8> piece(kPiece, 0x5A);
    GsfOutput* stream = gsf_outfile_new_child(parent, name.c_str(), FALSE);
    while (size > 0) {
        const std::uint64_t now = std::min<std::uint64_t>(size, kPiece);
        gsf_output_write(stream, now, piece.data());
        size -= now;
    }
    gsf_output_close(stream);
    g_object_unref(stream);
}

bool writeFile(const char* shape, const char* path) {
    GsfOutput* sink = gsf_output_stdio_new(path, nullptr);
    if (!sink)
        return false;
    std::vector<GsfOutfile*> storages{gsf_outfile_msole_new(sink)};
    std::ifstream entries(shape);
    std::string line;
    while (std::getline(entries, line)) {
        if (line.rfind("d ", 0) == 0) {
            storages.push_back(GSF_OUTFILE(gsf_outfile_new_child(storages.back(), line.c_str() + 2, TRUE)));
        } else if (line == "u") {
            gsf_output_close(GSF_OUTPUT(storages.back()));
            g_object_unref(storages.back());
            storages.pop_back();
        } else if (line.rfind("s ", 0) == 0) {
            const std::size_t blank = line.find(' ', 2);
            writeStream(storages.back(), line.substr(blank + 1), std::strtoull(line.c_str() + 2, nullptr, 10));
        }
    }
    const bool closed = gsf_output_close(GSF_OUTPUT(storages.back()));
    g_object_unref(storages.back());
    g_object_unref(sink);
    return closed;
}

void writeLog(std::uint64_t bytes) {
    static const std::array<char, kPiece> piece = [] {
        std::array<char, kPiece> text{};
        text.fill('x');
        return text;
    }();
    while (bytes > 0) {
        const std::uint64_t now = std::min<std::uint64_t>(bytes, kPiece);
        std::fwrite(piece.data(), 1, now, stderr);
        bytes -= now;
    }
}

} // namespace

int main(int argc, char** argv) {
    const std::string_view reading = argc < 5 ? "" : argv[1];
    if (reading != "tree" && reading != "events") {
        std::fputs("usage: floor tree|events SHAPE OUT.mpp LOG_BYTES DOCUMENT...\n", stderr);
        return 2;
    }
    gsf_init();
    for (int i = 5; i < argc; ++i)
        if (!(reading == "tree" ? parseIntoTree(argv[i]) : parseEvents(argv[i])))
            return 1;
    writeLog(std::strtoull(argv[4], nullptr, 10));
    const bool written = writeFile(argv[2], argv[3]);
    gsf_shutdown();
    return written ? 0 : 1;
}
