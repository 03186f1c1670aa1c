#include "CompoundFile.h"

#include "DirectorySize.h"

#include <fmt/format.h>
#include <gsf/gsf-infile-msole.h>
#include <gsf/gsf-input-memory.h>
#include <gsf/gsf-input-stdio.h>
#include <gsf/gsf-utils.h>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <map>
#include <stdexcept>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace brackwater::inspect {

namespace {

constexpr int kDeepest = 32; ///< storages within one another; real files have three
constexpr std::size_t kMostEntries = 10'000;
constexpr std::int64_t kLargestFile = std::int64_t{2} << 30;
/// The library seeks often, and each time the system reads a page of the file anew.
constexpr std::int64_t kLargestReadAtOnce = std::int64_t{4} << 20;
constexpr std::uint64_t kLargestDirectory = kMostEntries * 128;

struct Unreference {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using Input = std::unique_ptr<GsfInput, Unreference>;

GsfInfile* infile(const Input& input) { return reinterpret_cast<GsfInfile*>(input.get()); }

Input shared(const Input& input) { return Input(GSF_INPUT(g_object_ref(input.get()))); }

bool isStorage(const Input& input) { return GSF_IS_INFILE(input.get()) && gsf_infile_num_children(infile(input)) >= 0; }

// A broken file makes the library write warnings of its own; what is wrong is told by the complaints.
void ignoreMessage(const gchar*, GLogLevelFlags, const gchar*, gpointer) {}

class QuietLibrary {
public:
    QuietLibrary() : _handler(g_log_set_default_handler(ignoreMessage, nullptr)) { gsf_init(); }
    ~QuietLibrary() {
        gsf_shutdown();
        g_log_set_default_handler(_handler, nullptr);
    }
    QuietLibrary(const QuietLibrary&) = delete;
    QuietLibrary& operator=(const QuietLibrary&) = delete;

private:
    GLogFunc _handler;
};

std::string joined(std::initializer_list<std::string_view> path) {
    std::string text;
    for (const std::string_view name : path)
        text += text.empty() ? std::string(name) : fmt::format("/{}", name);
    return text;
}

WordReader wordsOf(const Input& input) {
    return [file = input.get()](std::uint64_t offset) -> std::optional<std::uint32_t> {
        if (gsf_input_seek(file, static_cast<gsf_off_t>(offset), G_SEEK_SET) != 0)
            return std::nullopt;
        const guint8* bytes = gsf_input_read(file, 4, nullptr);
        return bytes == nullptr ? std::nullopt : ByteView(std::span(bytes, 4)).u32(0);
    };
}

// A pipe or device may never end, or block already when it is opened.
std::FILE* openRegular(const std::string& path) {
    const auto failed = [&path](int error) {
        return std::system_error(error, std::generic_category(), fmt::format("cannot open '{}'", path));
    };
    const int descriptor = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor == -1)
        throw failed(errno);
    struct stat status {};
    const bool isKnown = fstat(descriptor, &status) == 0;
    std::FILE* const file =
        isKnown && S_ISREG(status.st_mode) && status.st_size <= kLargestFile ? fdopen(descriptor, "rb") : nullptr;
    if (file != nullptr)
        return file;
    const int error = errno;
    close(descriptor);
    if (isKnown && !S_ISREG(status.st_mode))
        throw std::runtime_error(fmt::format("'{}' is no regular file", path));
    if (isKnown && status.st_size > kLargestFile)
        throw std::runtime_error(fmt::format("'{}' is larger than the 2 GiB that such a file can have", path));
    throw failed(error);
}

[[noreturn]] void fail(const std::string& what, GError* error) {
    std::string reason = what;
    if (error != nullptr) {
        reason += fmt::format(": {}", error->message);
        g_error_free(error);
    }
    throw std::runtime_error(reason);
}

} // namespace

struct CompoundFile::Node {
    QuietLibrary library; ///< outlives the objects of the library
    Bytes bytes;          ///< of a file in memory
    std::int64_t fileSize = 0;
    Input root;

    std::map<std::string, Input, std::less<>> storages; ///< that were opened, by path

    [[nodiscard]] Input find(std::initializer_list<std::string_view> path) {
        Input node = shared(root);
        std::string reached;
        for (const std::string_view name : path) {
            reached.append("/").append(name);
            if (const auto known = storages.find(reached); known != storages.end()) {
                node = shared(known->second);
                continue;
            }
            if (!isStorage(node))
                return nullptr;
            node.reset(gsf_infile_child_by_name(infile(node), std::string(name).c_str()));
            if (!node)
                return nullptr;
            if (isStorage(node))
                storages.emplace(reached, shared(node));
        }
        return node;
    }

    [[nodiscard]] Input inputOfBytes() const {
        return Input(gsf_input_memory_new(bytes.data(), static_cast<gsf_off_t>(bytes.size()), FALSE));
    }

    /// The file with its bytes in memory; null if they cannot be read.
    [[nodiscard]] Input readAtOnce(Input file) {
        bytes.resize(static_cast<std::size_t>(gsf_input_size(file.get())));
        if (!bytes.empty() && gsf_input_read(file.get(), bytes.size(), bytes.data()) == nullptr)
            return nullptr;
        return inputOfBytes();
    }

    void takeRoot(const Input& input, const std::string& name) {
        GError* error = nullptr;
        fileSize = gsf_input_size(input.get());
        if (!directorySize(wordsOf(input), kLargestDirectory))
            fail(fmt::format("'{}' is not a compound file, or its directory is beyond all bounds", name), nullptr);
        gsf_input_seek(input.get(), 0, G_SEEK_SET);
        root.reset(GSF_INPUT(gsf_infile_msole_new(input.get(), &error)));
        if (!root)
            fail(fmt::format("'{}' is not a compound file", name), error);
    }
};

CompoundFile::CompoundFile(std::unique_ptr<Node> root) : _root(std::move(root)) {}
CompoundFile::CompoundFile(CompoundFile&&) noexcept = default;
CompoundFile& CompoundFile::operator=(CompoundFile&&) noexcept = default;
CompoundFile::~CompoundFile() = default;

CompoundFile CompoundFile::open(const std::string& path) {
    auto node = std::make_unique<Node>();
    Input input(gsf_input_stdio_new_FILE(path.c_str(), openRegular(path), FALSE));
    if (input && gsf_input_size(input.get()) <= kLargestReadAtOnce)
        input = node->readAtOnce(std::move(input));
    if (!input)
        throw std::runtime_error(fmt::format("cannot read '{}'", path));
    node->takeRoot(input, path);
    return CompoundFile(std::move(node));
}

CompoundFile CompoundFile::fromBytes(Bytes bytes) {
    auto node = std::make_unique<Node>();
    node->bytes = std::move(bytes);
    const Input input = node->inputOfBytes();
    if (!input)
        throw std::runtime_error("no bytes to read");
    node->takeRoot(input, "(bytes)");
    return CompoundFile(std::move(node));
}

namespace {

class Lister {
public:
    Lister(std::vector<EntryInfo>& out, Complaints& complaints) : _out(out), _complaints(complaints) {}

    void list(const Input& storage, const std::string& prefix, int depth) {
        const int count = gsf_infile_num_children(infile(storage));
        for (int i = 0; i < count; ++i) {
            if (_out.size() >= kMostEntries)
                return _complaints.add(prefix, "more entries than are listed");
            const Input child(gsf_infile_child_by_index(infile(storage), i));
            const char* name = gsf_infile_name_by_index(infile(storage), i);
            const std::string path = prefix + (name != nullptr ? name : "(without a name)");
            if (!child) {
                _complaints.add(path, "the entry cannot be opened");
                continue;
            }
            const bool storageChild = isStorage(child);
            _out.push_back({path, storageChild, storageChild ? 0 : gsf_input_size(child.get())});
            if (storageChild && depth >= kDeepest)
                _complaints.add(path, "storages stand too deep within one another");
            else if (storageChild)
                list(child, path + "/", depth + 1);
        }
    }

private:
    std::vector<EntryInfo>& _out;
    Complaints& _complaints;
};

} // namespace

std::vector<EntryInfo> CompoundFile::entries(Complaints& complaints) const {
    std::vector<EntryInfo> entries;
    Lister(entries, complaints).list(_root->root, "", 1);
    return entries;
}

bool CompoundFile::has(std::initializer_list<std::string_view> path) const { return _root->find(path) != nullptr; }

std::optional<Bytes> CompoundFile::read(std::initializer_list<std::string_view> path, Complaints& complaints) const {
    const Input stream = _root->find(path);
    if (!stream || isStorage(stream))
        return std::nullopt;
    const std::int64_t size = gsf_input_size(stream.get());
    if (size < 0 || size > _root->fileSize) {
        complaints.add(joined(path), "the stream is longer than the file");
        return std::nullopt;
    }
    Bytes bytes(static_cast<std::size_t>(size));
    if (size > 0 && gsf_input_read(stream.get(), bytes.size(), bytes.data()) == nullptr) {
        complaints.add(joined(path), "the stream cannot be read");
        return std::nullopt;
    }
    return bytes;
}

} // namespace brackwater::inspect
