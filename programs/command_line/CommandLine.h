#pragma once

#include <exception>
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

/// Has a program do its work. @return the exit status of the program: what the work returns, or 1, with the
/// reason in one line, when it throws
template<class FWork>
int Run(const char* program, std::ostream& err, FWork work)
{
    try {
        return work();
    } catch (const std::exception& error) {
        err << program << ": " << error.what() << "\n";
        return 1;
    }
}

} // namespace CommandLine
