#pragma once

#include <span>
#include <string>
#include <vector>

namespace CommandLine
{

/// What a program was started with, without its own name, as UTF-8: on Windows the texts that `main` gets
/// have lost what the code page of the system lacks, and its terminal is told that what is written is UTF-8.
class CArguments
{
public:
    /// @param count, values what `main` got; kept
    CArguments(int count, char** values);

    /// For as long as this object lives.
    operator std::span<const char* const>() const { return m_values; }

private:
    std::vector<std::string> m_texts; // on Windows alone
    std::vector<const char*> m_values;
};

} // namespace CommandLine
