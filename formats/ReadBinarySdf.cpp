#include "formats/detail/BinaryHeights.h"
#include "formats/detail/Dates.h"
#include "formats/detail/Readers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace CommonUI::Formats
{

namespace
{

// Where the fields of the header stand.
constexpr std::size_t c_datePlace = 18;
constexpr std::size_t c_dateSize = 12;
constexpr std::size_t c_pointsPlace = 42;
constexpr std::size_t c_linesPlace = 44;
constexpr std::size_t c_dxPlace = 46;
constexpr std::size_t c_dyPlace = 54;
constexpr std::size_t c_scalePlace = 62;
constexpr std::size_t c_compressionPlace = 78;
constexpr std::size_t c_typePlace = 79;
constexpr std::size_t c_checkPlace = 80;
constexpr std::size_t c_headerSize = 81;

[[noreturn]] void FailAt(const CInputFile& file, std::uintmax_t place, const std::string& message)
{
    file.Fail("byte " + std::to_string(place) + ": " + message);
}

std::size_t ReadCount(const CInputFile& file, std::size_t place)
{
    const auto count = LoadLittle<std::uint16_t>(file.GetHead().data() + place);
    if (count == 0)
        FailAt(file, place, "a number of points from 1 to 65535 expected, not 0");
    return count;
}

double ReadScale(const CInputFile& file, std::size_t place)
{
    const auto scale = LoadLittle<double>(file.GetHead().data() + place);
    if (!IsPlausibleLength(scale))
        FailAt(file, place, "a scale from 1e-18 m to 1e9 m expected");
    return scale;
}

// The spacing of lines; where there is one line, as of a profile, it may be 0.
double ReadLineSpacing(const CInputFile& file, const Analysis::SSurface& surface)
{
    const bool isNone = LoadLittle<double>(file.GetHead().data() + c_dyPlace) == 0;
    return surface.lines == 1 && isNone ? surface.dx : ReadScale(file, c_dyPlace);
}

ENumber ReadType(const CInputFile& file)
{
    constexpr std::array c_types = {ENumber::UInt8, ENumber::UInt16, ENumber::UInt32, ENumber::Float,
                                    ENumber::Int8,  ENumber::Int16,  ENumber::Int32,  ENumber::Double};
    const auto type = static_cast<unsigned char>(file.GetHead()[c_typePlace]);
    if (type >= c_types.size())
        FailAt(file, c_typePlace, "a data type from 0 to 7 expected, not " + std::to_string(type));
    return c_types[type];
}

void RequireZero(const CInputFile& file, std::size_t place, const char* what)
{
    if (file.GetHead()[place] != 0)
        FailAt(file, place, std::string(what) + " is not supported");
}

// The lowest number of a signed type and the highest of the others stand for a missing point.
template<class T>
bool IsMissing(T value)
{
    using CLimits = std::numeric_limits<T>;
    if constexpr (std::is_floating_point_v<T>)
        return std::isnan(value) || value == CLimits::lowest() || value == CLimits::max();
    else
        return value == (CLimits::is_signed ? CLimits::lowest() : CLimits::max());
}

template<class T>
void ReadHeights(CInputFile& file, double scale, std::size_t count, const FProgress& progress,
                 std::vector<double>& heights)
{
    constexpr std::size_t c_atATime = 1 << 16;
    std::vector<char> bytes(std::min(c_atATime, count) * sizeof(T));
    heights.reserve(count);
    while (heights.size() < count) {
        const std::size_t first = heights.size();
        const std::size_t size = std::min(c_atATime, count - first) * sizeof(T);
        file.Read(c_headerSize + first * sizeof(T), {bytes.data(), size});
        for (std::size_t i = 0; i < size; i += sizeof(T)) {
            const T value = LoadLittle<T>(bytes.data() + i);
            const double height = IsMissing(value) ? Analysis::c_missing : static_cast<double>(value) * scale;
            if (IsBeyondHeights(height))
                FailAt(file, c_headerSize + first * sizeof(T) + i, "a height beyond 1e9 m");
            heights.push_back(height);
        }
        if (progress)
            progress(static_cast<double>(heights.size()) / static_cast<double>(count));
    }
}

} // namespace

Analysis::SSurface ReadBinarySdf(CInputFile& file, const FProgress& progress)
{
    if (file.GetHead().size() < c_headerSize)
        file.Fail("the file ends within its header of 81 bytes");
    Analysis::SSurface surface{.points = ReadCount(file, c_pointsPlace),
                               .lines = ReadCount(file, c_linesPlace),
                               .date = DateOfSdf(file.GetHead().substr(c_datePlace, c_dateSize))};
    surface.dx = ReadScale(file, c_dxPlace);
    surface.dy = ReadLineSpacing(file, surface);
    const double scale = ReadScale(file, c_scalePlace);
    RequireZero(file, c_compressionPlace, "compressed data");
    RequireZero(file, c_checkPlace, "a check sum");
    const ENumber type = ReadType(file);

    // What stands behind the values is the trailer, a text for people.
    const std::size_t count = surface.points * surface.lines;
    const std::uintmax_t room = (file.GetSize() - c_headerSize) / SizeOf(type);
    if (room < count)
        file.Fail(std::to_string(count) + " values promised, only " + std::to_string(room) + " found");
    VisitNumber(
        type, [&](auto zero) { ReadHeights<decltype(zero)>(file, scale, count, progress, surface.heights); });
    return surface;
}

} // namespace CommonUI::Formats
