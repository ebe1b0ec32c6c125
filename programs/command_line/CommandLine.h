#pragma once

#include <exception>
#include <filesystem>
#include <initializer_list>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

/// @file
/// What programs share of saying what is wrong.

namespace CommandLine
{

/// The command line cannot be understood; the message is one line.
class EUsage : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The value that one of a few words stands for. @throws EUsage for another word
template<class T>
T ParseWord(const std::string& option, const std::string& text,
            std::initializer_list<std::pair<std::string_view, T>> words)
{
    std::string known;
    for (const auto& [word, value] : words) {
        if (text == word)
            return value;
        if (!known.empty())
            known += ", ";
        known += word;
    }
    throw EUsage(option + ": \"" + text + "\" is none of " + known);
}

/// The path that an argument or a line of a file names, in UTF-8; elsewhere than on Windows in any bytes.
std::filesystem::path ToPath(const std::string& text);

/// The path that is given for an option, which has to be a text: some systems have names that are none.
/// @throws EUsage
std::filesystem::path ParsePath(const std::string& option, const std::string& text);

/// A text that comes from a file or from somebody else, as one line for a terminal: "?" in place of control
/// characters, which would command it, and U+FFFD for bytes that are no UTF-8.
std::string ToTerminal(std::string_view text);

/// What an error says: a path in front of the reason where it is one of the file system.
std::string GetMessage(const std::exception& error);

/// Has a program do its work. @return the exit status of the program: what the work returns, or 1, with the
/// reason in one line, when it throws
template<class FWork>
int Run(const char* program, std::ostream& err, FWork work)
{
    try {
        return work();
    } catch (const std::exception& error) {
        err << program << ": " << ToTerminal(GetMessage(error)) << "\n";
        return 1;
    }
}

} // namespace CommandLine
