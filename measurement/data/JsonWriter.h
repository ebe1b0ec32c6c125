#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"
#include "../WriteText.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace CommonUI::Measurement
{

/// Writes a JSON document (RFC 8259), UTF-8, piece by piece. Members of an object and elements that are
/// objects stand on lines of their own, numbers of an array beside each other.
class COMMONUIMEASUREMENT_API CJsonWriter
{
public:
    /// @param write takes the pieces, from whatever adds something and from Finish
    explicit CJsonWriter(FWriteText write);
    /// What is not written goes; a whole document ends with Finish.
    ~CJsonWriter();
    CJsonWriter(const CJsonWriter&) = delete;
    CJsonWriter& operator=(const CJsonWriter&) = delete;

    /// Begins an object, whose values each follow a Key.
    void BeginObject();
    /// Begins an array.
    void BeginArray();
    /// Ends what was begun last.
    void End();
    /// Names the next value, in an object.
    CJsonWriter& Key(std::string_view key);

    /// A string; bytes that are no UTF-8 become U+FFFD.
    void Text(std::string_view utf8);
    /// The same of a text.
    void Text(const CStr& text) { Text(text.ToUtf8()); }
    /// The shortest digits that give the same number back; null for what is not finite.
    void Number(double value);
    /// A whole number.
    void Count(std::size_t count);
    /// The value null.
    void Null();

    /// Writes the last piece.
    void Finish();

private:
    struct SLevel {
        char end;
        bool isEmpty;
    };

    void Begin(char begin, char end);
    void PutComma(bool breaksLine);
    void BreakLine();
    void PutText(std::string_view utf8);

    FWriteText m_write;
    std::string m_piece{};
    std::vector<SLevel> m_levels{};
    bool m_isBehindKey = false;
};

} // namespace CommonUI::Measurement
