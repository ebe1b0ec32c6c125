#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"
#include "GridValue.h"

#include <map>

namespace CommonUI
{

/// How values of each type are written: a printf format by the type code of the value.
class COMMONUI_API CGridFormats
{
public:
    /// Sets the format of a type. An empty format is ignored and leaves an earlier one in place.
    /// @param type an EGridValueType as a number
    /// @param format for one argument: the number of an R8 (5), the text of a String (8); see FormatText for
    ///     what becomes of a conversion that does not fit
    void Set(int type, const CStr& format);
    /// Whether no type has a format, so that every text stands as it is.
    bool IsEmpty() const noexcept { return m_formats.empty(); }

    /// `text` where the value's type has no format; otherwise the format applied to the number of an R8 or
    /// the text of a String, and an empty text for every other type.
    CStr Apply(const CGridValue& value, const CStr& text) const;
    /// What is shown for a text that stands for a value: a text that reads as a finite number goes through
    /// the format of R8 where there is one, every other one through that of String.
    CStr ApplyToText(const CStr& text) const;

private:
    const CStr* Find(EGridValueType type) const;

    std::map<int, CStr> m_formats;
};

} // namespace CommonUI
