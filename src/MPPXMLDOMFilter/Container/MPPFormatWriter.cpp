#include "MPPXMLDOMFilter/Container/MPPFormatWriter.h"

#include "MPPXMLDOMFilter/Container/GObjectPointer.h"
#include "MPPXMLDOMFilter/Container/TemporaryOutput.h"
#include "Platform/Log/Log.h"
#include "Platform/Values/Exception.h"

#include <gsf/gsf-outfile-msole.h>
#include <gsf/gsf-output-stdio.h>

#include <optional>
#include <utility>

namespace brackwater {

namespace {

/// State shared by all open nodes of one output.
struct OutputState {
    /// The open stream. With a second one the library would silently damage the file.
    const GsfOutput* openStream = nullptr;
    /// A child's failed close spoils the whole file, whether or not the caller noticed.
    bool childCloseFailed = false;
    std::string failureText;

    void noteFailure(GsfOutput* node) {
        const GError* error = gsf_output_error(node);
        if (error != nullptr && error->message != nullptr)
            failureText = error->message;
    }
};

} // namespace

struct MPPFormatWriter::Node {
    std::optional<NumberedPath> ownDestination;
    NumberedPath* destination = nullptr;            ///< root only
    std::unique_ptr<TemporaryOutput> temporaryFile; ///< while the sink is open
    GObjectPointer<GsfOutput> output;               ///< the file sink; root only
    GObjectPointer<GsfOutput> outfile;
    std::shared_ptr<OutputState> state = std::make_shared<OutputState>();
    bool isDir = true;
    std::optional<bool> closeAnswer; ///< set once closed

    bool openSink();
    bool closeChild();
    bool closeRoot();
    bool moveIntoPlace();
};

MPPFormatWriter::MPPFormatWriter() : _node(std::make_unique<Node>()) {}

MPPFormatWriter::MPPFormatWriter(NumberedPath& destination) : MPPFormatWriter() { _node->destination = &destination; }

MPPFormatWriter::MPPFormatWriter(const FileURL& url) : MPPFormatWriter() {
    _node->destination = &_node->ownDestination.emplace(url.path());
}

MPPFormatWriter::MPPFormatWriter(GsfOutput* node) : MPPFormatWriter() { _node->outfile = shareGObject(node); }

MPPFormatWriter::~MPPFormatWriter() {
    try {
        MPPFormatWriter::close();
    } catch (...) {
        // Not enough memory for the text. Closing the node still reports the failure.
    }
}

bool MPPFormatWriter::open() {
    if (_node->closeAnswer)
        return false;
    if (_node->outfile)
        return true;
    if (_node->destination == nullptr || !_node->openSink())
        return false;
    GsfOutfile* outfile = gsf_outfile_msole_new(_node->output.get());
    if (outfile == nullptr) {
        gsf_output_close(_node->output.get());
        _node->temporaryFile.reset();
        return false;
    }
    _node->outfile.reset(GSF_OUTPUT(outfile));
    return true;
}

bool MPPFormatWriter::Node::openSink() {
    const std::string& path = destination->path();
    logLine("opening a file at path {}", path);
    std::string& fault = state->failureText;
    temporaryFile = TemporaryOutput::beside(path, fault);
    std::FILE* stream = temporaryFile ? temporaryFile->openStream(fault) : nullptr;
    if (stream != nullptr)
        output.reset(gsf_output_stdio_new_FILE(path.c_str(), stream, FALSE));
    if (output)
        return true;
    temporaryFile.reset();
    logLine("'{}' error: {}", path, fault);
    return false;
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
    // The library closes the sink with the root. After an error in the sink it still returns true; only the error shows
    // the failure.
    const bool closed = gsf_output_close(outfile.get()) && gsf_output_error(outfile.get()) == nullptr &&
                        gsf_output_is_closed(output.get()) && gsf_output_error(output.get()) == nullptr;
    if (!closed) {
        state->noteFailure(outfile.get());
        state->noteFailure(output.get());
        if (!gsf_output_is_closed(output.get()))
            gsf_output_close(output.get());
    }
    outfile.reset();
    output.reset();
    const bool moved = closed && moveIntoPlace();
    temporaryFile.reset();
    return moved && !state->childCloseFailed;
}

bool MPPFormatWriter::Node::moveIntoPlace() {
    const std::string wanted = destination->path();
    if (!temporaryFile->moveTo(*destination, state->failureText))
        return false;
    if (destination->path() != wanted)
        logLine("WARNING: '{}' has been taken meanwhile. The export stands at '{}'.", wanted, destination->path());
    return true;
}

} // namespace brackwater
