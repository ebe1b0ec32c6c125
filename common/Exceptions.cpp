#include "common/Exceptions.h"

namespace CommonUI
{

EBase::EBase(const CStr& file, int line, const CStr& function, const CStr& message)
    : m_file(file)
    , m_line(line)
    , m_function(function)
    , m_message(message)
    , m_what(message.ToUtf8())
{
}

// Out of line, so that the classes have one home and are caught across library borders.
EBase::~EBase() = default;
EInput::~EInput() = default;
EInternal::~EInternal() = default;

} // namespace CommonUI
