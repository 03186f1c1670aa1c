#include "support/CompoundFile.h"

#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-memory.h>

#include <fstream>
#include <iterator>
#include <ostream>
#include <stdexcept>
#include <utility>

namespace brackwater::test {

namespace {

struct Unref {
    void operator()(void* object) const { g_object_unref(object); }
};
template <typename Object>
using Owned = std::unique_ptr<Object, Unref>;

void addEntries(GsfOutfile* parent, const CompoundTree& tree) {
    for (const auto& entry : tree) {
        const Owned<GsfOutput> child(gsf_outfile_new_child(parent, entry.name.c_str(), entry.children.has_value()));
        if (entry.children)
            addEntries(reinterpret_cast<GsfOutfile*>(child.get()), *entry.children);
        else
            gsf_output_write(child.get(), entry.bytes.size(), entry.bytes.data());
        gsf_output_close(child.get());
    }
}

CompoundTree entriesOf(GsfInfile* parent) {
    CompoundTree tree;
    for (int i = 0; i < gsf_infile_num_children(parent); ++i) {
        const Owned<GsfInput> child(gsf_infile_child_by_index(parent, i));
        if (!child)
            throw std::runtime_error("an entry does not open");
        CompoundEntry& entry = tree.emplace_back();
        entry.name = gsf_input_name(child.get());
        auto* infile = reinterpret_cast<GsfInfile*>(child.get());
        if (gsf_infile_num_children(infile) >= 0) {
            entry.children = entriesOf(infile);
            continue;
        }
        entry.bytes.resize(static_cast<std::size_t>(gsf_input_size(child.get())));
        if (!entry.bytes.empty() && gsf_input_read(child.get(), entry.bytes.size(), entry.bytes.data()) == nullptr)
            throw std::runtime_error("a stream cannot be read: " + entry.name);
    }
    return tree;
}

Owned<GsfInfile> rootOf(const Bytes& bytes) {
    const Owned<GsfInput> input(gsf_input_memory_new_clone(bytes.data(), static_cast<gsf_off_t>(bytes.size())));
    Owned<GsfInfile> root(gsf_infile_msole_new(input.get(), nullptr));
    if (!root)
        throw std::runtime_error("no compound file");
    return root;
}

void appendLength(Bytes& bytes, std::size_t length) {
    for (int shift = 0; shift < 32; shift += 8)
        bytes.push_back(static_cast<std::uint8_t>(length >> shift & 0xFF));
}

void appendCounted(Bytes& bytes, const std::string& text) {
    appendLength(bytes, text.size() + 1);
    bytes.insert(bytes.end(), text.begin(), text.end());
    bytes.push_back(0);
}

} // namespace

void PrintTo(const CompoundEntry& entry, std::ostream* out) { *out << listing({entry}); }

CompoundEntry stream(std::string name, Bytes bytes) { return {std::move(name), std::move(bytes), std::nullopt}; }

CompoundEntry storage(std::string name, CompoundTree children) { return {std::move(name), {}, std::move(children)}; }

CompoundEntry compObj(const std::string& userType, const std::string& formatName) {
    Bytes bytes(28, 0xEE); // ignored
    appendCounted(bytes, userType);
    appendCounted(bytes, formatName);
    return stream("\x01"
                  "CompObj",
                  bytes);
}

CompoundEntry compObj2007() { return compObj("Microsoft Project 12.0", "MSProject.MPP12"); }

Bytes patternBytes(std::size_t size, unsigned seed) {
    Bytes bytes(size);
    std::uint32_t state = seed * 2654435761U + 1;
    for (auto& byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<std::uint8_t>(state >> 24);
    }
    return bytes;
}

Bytes bytesOfCompoundFile(const CompoundTree& tree) {
    const Owned<GsfOutput> sink(gsf_output_memory_new());
    const Owned<GsfOutfile> file(gsf_outfile_msole_new(sink.get()));
    addEntries(file.get(), tree);
    gsf_output_close(reinterpret_cast<GsfOutput*>(file.get()));
    const guint8* begin = gsf_output_memory_get_bytes(reinterpret_cast<GsfOutputMemory*>(sink.get()));
    return {begin, begin + gsf_output_size(sink.get())};
}

void writeFile(const std::string& path, const Bytes& bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush())
        throw std::runtime_error("cannot write " + path);
}

Bytes readFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void writeCompoundFile(const std::string& path, const CompoundTree& tree) {
    writeFile(path, bytesOfCompoundFile(tree));
}

std::shared_ptr<MPPFormatReader> readerOfCompoundFile(const CompoundTree& tree) {
    return std::make_shared<MPPFormatReader>(reinterpret_cast<GsfInput*>(rootOf(bytesOfCompoundFile(tree)).get()));
}

CompoundTree readCompoundFile(const std::string& path) { return entriesOf(rootOf(readFile(path)).get()); }

const CompoundEntry* entryAt(const CompoundTree& tree, const std::string& path) {
    const std::size_t slash = path.find('/');
    for (const auto& entry : tree) {
        if (entry.name != path.substr(0, slash))
            continue;
        if (slash == std::string::npos)
            return &entry;
        return entry.children ? entryAt(*entry.children, path.substr(slash + 1)) : nullptr;
    }
    return nullptr;
}

std::string listing(const CompoundTree& tree, const std::string& prefix) {
    std::string text;
    for (const auto& entry : tree) {
        text += prefix + entry.name + (entry.children ? "/\n" : "\n");
        if (entry.children)
            text += listing(*entry.children, prefix + entry.name + "/");
    }
    return text;
}

} // namespace brackwater::test
