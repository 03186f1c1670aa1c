#include "support/MemoryTemplate.h"

#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-memory.h>

#include <stdexcept>

namespace brackwater::test {

namespace {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
template <typename Object>
using Owned = std::unique_ptr<Object, Unref>;

void addStream(GsfOutfile* storage, const std::string& path, const Bytes& bytes) {
    const std::size_t slash = path.find('/');
    const std::string name = path.substr(0, slash);
    const bool isDir = slash != std::string::npos;
    const Owned<GsfOutput> child(gsf_outfile_new_child(storage, name.c_str(), isDir));
    if (isDir)
        addStream(reinterpret_cast<GsfOutfile*>(child.get()), path.substr(slash + 1), bytes);
    else
        gsf_output_write(child.get(), bytes.size(), bytes.data());
    gsf_output_close(child.get());
}

Owned<GsfInput> inputOf(const Bytes& bytes) {
    return Owned<GsfInput>(gsf_input_memory_new_clone(bytes.data(), static_cast<gsf_off_t>(bytes.size())));
}

} // namespace

std::shared_ptr<MPPFormatReader> memoryTemplate(const std::map<std::string, Bytes>& streams) {
    const Owned<GsfOutput> sink(gsf_output_memory_new());
    const Owned<GsfOutfile> file(gsf_outfile_msole_new(sink.get()));
    for (const auto& [path, bytes] : streams)
        addStream(file.get(), path, bytes);
    gsf_output_close(reinterpret_cast<GsfOutput*>(file.get()));

    auto* memory = reinterpret_cast<GsfOutputMemory*>(sink.get());
    const guint8* begin = gsf_output_memory_get_bytes(memory);
    const Bytes bytes(begin, begin + gsf_output_size(sink.get()));
    const Owned<GsfInfile> root(gsf_infile_msole_new(inputOf(bytes).get(), nullptr));
    if (!root)
        throw std::runtime_error("the template in memory does not open");
    return std::make_shared<MPPFormatReader>(reinterpret_cast<GsfInput*>(root.get()));
}

std::shared_ptr<MPPFormatReader> memoryStream(const Bytes& bytes) {
    return std::make_shared<MPPFormatReader>(inputOf(bytes).get());
}

} // namespace brackwater::test
