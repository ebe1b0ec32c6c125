#pragma once

#include "analysis/form/Levelling.h"

#include <cstddef>
#include <exception>
#include <initializer_list>
#include <ostream>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

/// @file
/// What the programs share of reading their command lines.

namespace CommandLine
{

/// The command line cannot be understood; the message is one line.
class EUsage : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The arguments of a program, without its name, one by one.
class CArguments
{
public:
    explicit CArguments(std::span<const char* const> arguments)
        : m_arguments(arguments)
    {
    }

    bool IsAtEnd() const noexcept { return m_next == m_arguments.size(); }
    /// There must be one.
    std::string Take() { return m_arguments[m_next++]; }
    /// The value behind an option. @throws EUsage when there is none, or an empty one
    std::string TakeValue(const std::string& option)
    {
        std::string value = IsAtEnd() ? "" : Take();
        if (value.empty())
            throw EUsage(option + " needs a value");
        return value;
    }
    /// The value behind an option; empty when an option or nothing follows.
    std::string TakeOptionalValue()
    {
        return IsAtEnd() || std::string_view(m_arguments[m_next]).starts_with("--") ? "" : Take();
    }

private:
    std::span<const char* const> m_arguments;
    std::size_t m_next = 0;
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

inline CommonUI::Analysis::ELevelling ParseLevelling(const std::string& option, const std::string& text)
{
    using CommonUI::Analysis::ELevelling;
    return ParseWord<ELevelling>(
        option, text, {{"none", ELevelling::None}, {"mean", ELevelling::Mean}, {"plane", ELevelling::Plane}});
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
