#include "MPPXMLDOMFilter/Container/MPPFormatWriter.h"

#include "MPPXMLDOMFilter/Container/GObjectPointer.h"
#include "MPPXMLDOMFilter/Container/SinkTemporaryFile.h"
#include "Platform/Exception.h"
#include "Platform/FatalSignals.h"
#include "Platform/Log.h"

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-stdio.h>

#include <optional>
#include <utility>

namespace brackwater {

namespace {

std::string messageOf(const GError* error) {
    return error != nullptr && error->message != nullptr ? error->message : "";
}

/// What all open nodes of one output share.
struct OutputState {
    /// The stream that is open. With a second one the library would damage the file without a word.
    const GsfOutput* openStream = nullptr;
    /// A child's failed close, seen or not, spoils the whole file.
    bool childCloseFailed = false;
    std::string failureText;

    void noteFailure(GsfOutput* node) {
        if (std::string text = messageOf(gsf_output_error(node)); !text.empty())
            failureText = std::move(text);
    }
};

} // namespace

struct MPPFormatWriter::Node {
    FileURL mppFilePath;                              ///< of the root only
    GObjectPointer<GsfOutput> output;                 ///< the file sink; of the root only
    std::unique_ptr<SinkTemporaryFile> temporaryFile; ///< while the sink is open
    GObjectPointer<GsfOutput> outfile;
    std::shared_ptr<OutputState> state = std::make_shared<OutputState>();
    bool isDir = true;
    std::optional<bool> closeAnswer; ///< set once closed

    bool closeChild();
    bool closeRoot();
    /// Leaves neither the destination nor the temporary file behind.
    void abandonSink() const;
};

MPPFormatWriter::MPPFormatWriter() : _node(std::make_unique<Node>()) {}

MPPFormatWriter::MPPFormatWriter(FileURL url) : MPPFormatWriter() { _node->mppFilePath = std::move(url); }

MPPFormatWriter::MPPFormatWriter(GsfOutput* node) : MPPFormatWriter() { _node->outfile = shareGObject(node); }

MPPFormatWriter::~MPPFormatWriter() { MPPFormatWriter::close(); }

bool MPPFormatWriter::open() {
    if (_node->closeAnswer)
        return false;
    if (_node->outfile)
        return true;
    const std::string& path = _node->mppFilePath.path();
    logLine("opening a file at path {}", path);

    GError* error = nullptr;
    {
        // A signal between the two would leave a file that nobody knows of.
        const SignalsHeldBack heldBack;
        _node->output.reset(gsf_output_stdio_new(path.c_str(), &error));
        _node->temporaryFile = SinkTemporaryFile::ofNewSink();
    }
    if (!_node->output) {
        if (_node->temporaryFile)
            _node->temporaryFile->remove();
        if (error != nullptr) {
            _node->state->failureText = messageOf(error);
            logLine("'{}' error: {}", path, messageOf(error));
            g_error_free(error);
        }
        return false;
    }
    GsfOutfile* outfile = gsf_outfile_msole_new(_node->output.get());
    if (outfile == nullptr) {
        _node->abandonSink();
        return false;
    }
    _node->outfile.reset(GSF_OUTPUT(outfile));
    return true;
}

std::unique_ptr<MPPFormatWriter> MPPFormatWriter::createChildWithName(const std::string& name, bool isDir) {
    if (!_node->outfile || _node->closeAnswer || !_node->isDir || !GSF_IS_OUTFILE(_node->outfile.get()))
        return nullptr;
    assertThat(_node->state->openStream == nullptr, "'{}' cannot be begun while a stream of the output is open", name);
    const GObjectPointer<GsfOutput> child(
        gsf_outfile_new_child(GSF_OUTFILE(_node->outfile.get()), name.c_str(), isDir ? TRUE : FALSE));
    if (!child)
        return nullptr;
    auto writer = std::make_unique<MPPFormatWriter>(child.get());
    writer->_node->state = _node->state;
    writer->_node->isDir = isDir;
    if (!isDir)
        _node->state->openStream = child.get();
    return writer;
}

bool MPPFormatWriter::writeBytes(std::span<const std::uint8_t> bytes) {
    if (!_node->outfile || _node->closeAnswer)
        return false;
    if (bytes.empty())
        return true;
    if (gsf_output_write(_node->outfile.get(), bytes.size(), bytes.data()))
        return true;
    _node->state->noteFailure(_node->outfile.get());
    return false;
}

std::string MPPFormatWriter::getName() const {
    const char* name = _node->outfile ? gsf_output_name(_node->outfile.get()) : nullptr;
    return name != nullptr ? name : "";
}

bool MPPFormatWriter::close() {
    if (_node->closeAnswer)
        return *_node->closeAnswer;
    if (!_node->outfile)
        return true;
    _node->closeAnswer = _node->output ? _node->closeRoot() : _node->closeChild();
    return *_node->closeAnswer;
}

std::string MPPFormatWriter::failureText() const { return _node->state->failureText; }

bool MPPFormatWriter::Node::closeChild() {
    const bool closed = gsf_output_close(outfile.get()) && gsf_output_error(outfile.get()) == nullptr;
    if (!closed) {
        state->childCloseFailed = true;
        state->noteFailure(outfile.get());
    }
    if (state->openStream == outfile.get())
        state->openStream = nullptr;
    outfile.reset();
    return closed;
}

bool MPPFormatWriter::Node::closeRoot() {
    // The library closes the sink together with the root. A sink that has met an error answers true to its close all
    // the same, having taken its file away; only the error tells.
    const bool closed = gsf_output_close(outfile.get()) && gsf_output_error(outfile.get()) == nullptr &&
                        gsf_output_is_closed(output.get()) && gsf_output_error(output.get()) == nullptr;
    if (!closed) {
        state->noteFailure(outfile.get());
        state->noteFailure(output.get());
        abandonSink();
    }
    outfile.reset();
    output.reset();
    temporaryFile.reset();
    return closed && !state->childCloseFailed;
}

void MPPFormatWriter::Node::abandonSink() const {
    if (!gsf_output_is_closed(output.get())) {
        // A sink in error takes its temporary file away instead of moving it onto the destination.
        if (gsf_output_error(output.get()) == nullptr)
            gsf_output_set_error(output.get(), 0, "%s", "The compound file could not be finished");
        gsf_output_close(output.get());
    }
    // A sink whose move failed leaves the file.
    if (temporaryFile)
        temporaryFile->remove();
}

} // namespace brackwater
