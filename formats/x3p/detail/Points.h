#pragma once

#include "formats/x3p/detail/Description.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace CommonUI::Formats
{

/// The points of a file as they come, in the order of the file.
class CX3pPoints
{
public:
    explicit CX3pPoints(const SX3pDescription& description);
    CX3pPoints(const CX3pPoints&) = delete;
    CX3pPoints& operator=(const CX3pPoints&) = delete;

    std::uint64_t GetCount() const { return m_count; }
    /// How many bytes all points take.
    std::uint64_t GetBytes() const { return m_count * m_recordSize; }

    /// Takes the bytes of points. A point may be cut in two.
    void TakeBytes(std::string_view bytes);
    /// Takes a point as text: its height, behind positions where there is more than one number. An empty one
    /// is missing. @return whether it is one
    bool TakeText(std::string_view text);

    std::vector<double>& GetHeights() { return m_z; }
    const std::vector<double>& GetHeights() const { return m_z; }
    /// The positions, in m; empty where the axis is incremental.
    const std::vector<double>& GetX() const { return m_x; }
    const std::vector<double>& GetY() const { return m_y; }

private:
    // A number of a point.
    struct SField {
        ENumber type;
        SScale scale;
        std::size_t place; // in the bytes of a point
        std::size_t axis;  // 0 to 2
        std::vector<double>* numbers;
    };

    void AddField(const SX3pAxis& axis, std::size_t index, std::vector<double>& numbers);
    void Append(const SField& field, std::string_view bytes) const;

    std::uint64_t m_count;
    std::vector<double> m_x{};
    std::vector<double> m_y{};
    std::vector<double> m_z{};
    std::vector<SField> m_fields{};
    std::size_t m_recordSize = 0;
    std::string m_rest{};
};

} // namespace CommonUI::Formats
