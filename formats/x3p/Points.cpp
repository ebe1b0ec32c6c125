#if defined(COMMONUI_WITH_X3P)

#include "formats/x3p/detail/Points.h"

#include "formats/detail/TextScanner.h"

#include <array>

namespace CommonUI::Formats
{

CX3pPoints::CX3pPoints(const SX3pDescription& description)
    : m_count(std::uint64_t{description.points} * description.lines)
{
    AddField(description.x, 0, m_x);
    AddField(description.y, 1, m_y);
    AddField(description.z, 2, m_z);
}

void CX3pPoints::AddField(const SX3pAxis& axis, std::size_t index, std::vector<double>& numbers)
{
    if (!axis.isAbsolute)
        return;
    m_fields.push_back({axis.type, axis.scale, m_recordSize, index, &numbers});
    m_recordSize += SizeOf(axis.type);
}

void CX3pPoints::TakeBytes(std::string_view bytes)
{
    if (m_z.empty()) {
        for (const SField& field : m_fields)
            field.numbers->reserve(static_cast<std::size_t>(m_count));
    }
    std::string joined;
    if (!m_rest.empty()) {
        joined = m_rest.append(bytes);
        bytes = joined;
    }
    const std::size_t whole = bytes.size() - bytes.size() % m_recordSize;
    for (const SField& field : m_fields)
        Append(field, bytes.substr(0, whole));
    m_rest = bytes.substr(whole);
}

void CX3pPoints::Append(const SField& field, std::string_view bytes) const
{
    VisitNumber(field.type, [&](auto zero) {
        for (std::size_t i = field.place; i < bytes.size(); i += m_recordSize) {
            const auto number = LoadLittle<decltype(zero)>(bytes.data() + i);
            field.numbers->push_back(field.scale.Apply(static_cast<double>(number)));
        }
    });
}

bool CX3pPoints::TakeText(std::string_view text)
{
    std::array<double, 3> numbers{Analysis::c_missing, Analysis::c_missing, Analysis::c_missing};
    std::size_t count = 0;
    for (bool isLast = text.empty(); !isLast; ++count) {
        const std::size_t end = text.find(';');
        const std::string_view number = Trim(text.substr(0, end));
        if (count == numbers.size())
            return false;
        if (!number.empty() && !EqualsNoCase(number, "NaN") && !ParseNumber(number, numbers[count]))
            return false;
        isLast = end == text.npos;
        text.remove_prefix(isLast ? 0 : end + 1);
    }
    for (const SField& field : m_fields) {
        // The height is the last number, and one in front of it is the position along x.
        const bool isThere = field.axis == 2 ? count > 0 : field.axis + 1 < count;
        const double number = numbers[field.axis == 2 ? std::max<std::size_t>(count, 1) - 1 : field.axis];
        field.numbers->push_back(isThere ? field.scale.Apply(number) : Analysis::c_missing);
    }
    return true;
}

} // namespace CommonUI::Formats

#endif
