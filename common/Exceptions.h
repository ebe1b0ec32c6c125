#pragma once

#include "../export/Export.h"
#include "Str.h"

#include <exception>
#include <string>

namespace CommonUI
{

/// What every exception of the library carries: where it was thrown and a message for the log.
class COMMONDLL_API EBase : public std::exception
{
public:
    /// @param file the name of the source file, without folder and extension
    /// @param line the line in it; 0 when it means nothing
    /// @param function the function that throws, with its class
    EBase(const CStr& file, int line, const CStr& function, const CStr& message);
    ~EBase() override;
    EBase(const EBase&) = default;
    EBase& operator=(const EBase&) = default;

    /// The source file that threw, without folder and extension.
    const CStr& GetFile() const noexcept { return m_file; }
    /// The line in that file; 0 when it means nothing.
    int GetLine() const noexcept { return m_line; }
    /// The function that threw, with its class.
    const CStr& GetFunction() const noexcept { return m_function; }
    /// What went wrong, without the place.
    const CStr& GetMessageText() const noexcept { return m_message; }
    /// The message as UTF-8.
    const char* what() const noexcept override { return m_what.c_str(); }

private:
    CStr m_file;
    int m_line;
    CStr m_function;
    CStr m_message;
    std::string m_what;
};

/// The input of a user or a file cannot be used, and the caller asked to be told by an exception.
class COMMONDLL_API EInput : public EBase
{
public:
    using EBase::EBase;
    ~EInput() override;
};

/// A programming error: an identifier or a value that does not exist.
class COMMONDLL_API EInternal : public EBase
{
public:
    using EBase::EBase;
    ~EInternal() override;
};

} // namespace CommonUI
