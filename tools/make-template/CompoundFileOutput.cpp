#include "CompoundFileOutput.h"

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-stdio.h>
#include <gsf/gsf-utils.h>

#include <memory>
#include <stdexcept>

namespace brackwater::layout {

namespace {

struct Unreference {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using Output = std::unique_ptr<GsfOutput, Unreference>;

struct Library {
    Library() { gsf_init(); }
    ~Library() { gsf_shutdown(); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
};

[[noreturn]] void fail(const std::string& what, GError* error) {
    std::string reason = what;
    if (error != nullptr) {
        reason += std::string(": ") + error->message;
        g_error_free(error);
    }
    throw std::runtime_error(reason);
}

void close(GsfOutput* node, const std::string& name) {
    if (gsf_output_close(node) == 0)
        throw std::runtime_error("cannot finish '" + name + "'");
}

// One stream after the other: the library allows only one open stream.
void writeEntries(GsfOutput* parent, const std::vector<Entry>& entries) {
    for (const Entry& entry : entries) {
        const Output child(
            gsf_outfile_new_child(reinterpret_cast<GsfOutfile*>(parent), entry.name.c_str(), entry.isStorage ? 1 : 0));
        if (!child)
            throw std::runtime_error("cannot create '" + entry.name + "'");
        if (entry.isStorage)
            writeEntries(child.get(), entry.children);
        else if (!entry.bytes.empty() && gsf_output_write(child.get(), entry.bytes.size(), entry.bytes.data()) == 0)
            throw std::runtime_error("cannot write '" + entry.name + "'");
        close(child.get(), entry.name);
    }
}

} // namespace

void writeCompoundFile(const std::string& path, const std::vector<Entry>& entries) {
    const Library library;
    GError* error = nullptr;
    const Output sink(gsf_output_stdio_new(path.c_str(), &error));
    if (!sink)
        fail("cannot create '" + path + "'", error);
    const Output root(reinterpret_cast<GsfOutput*>(gsf_outfile_msole_new(sink.get())));
    writeEntries(root.get(), entries);
    close(root.get(), path); // also closes the sink, which moves the file to its path
}

} // namespace brackwater::layout
