#pragma once

#include <csignal>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace brackwater::inspect {

/// A page on its way to its file. It grows under another name in the same folder and takes its own only when it is
/// whole; without that nothing is left of it, not even when a signal ends the program. All failures throw
/// std::runtime_error with a sentence for the user.
class PageFile {
public:
    /// Refuses a target that is the input or no regular file, and one that exists and is no page of this program
    /// unless `force` is given.
    PageFile(const std::string& target, const std::string& input, bool force);
    PageFile(const PageFile&) = delete;
    PageFile& operator=(const PageFile&) = delete;
    ~PageFile();

    void write(std::string_view text);
    /// Ends the page with the mark that the program knows its pages by, and moves it into place.
    void publish();

private:
    /// Of a page that is given up; `publish` closes the whole one and looks whether that went well.
    struct Close {
        void operator()(std::FILE* file) const { static_cast<void>(std::fclose(file)); } // NOLINT(*-owning-memory)
    };
    /// Puts off the signals that end the program, until nothing is left to remove.
    class SignalsHeld {
    public:
        SignalsHeld();
        SignalsHeld(const SignalsHeld&) = delete;
        SignalsHeld& operator=(const SignalsHeld&) = delete;
        ~SignalsHeld();
        /// Throws where one of them came.
        void throwIfCame() const;

    private:
        sigset_t _held{}, _before{};
    };
    [[noreturn]] void fail(int error) const;
    void moveIntoPlace();

    SignalsHeld _signals; ///< first, so that it ends last
    std::string _target;  ///< where a link leads to
    bool _replaces = false;
    std::string _temporary; ///< empty when there is nothing to remove any more
    std::unique_ptr<std::FILE, Close> _file;
};

} // namespace brackwater::inspect
