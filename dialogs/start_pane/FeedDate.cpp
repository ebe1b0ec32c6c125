#include "dialogs/start_pane/FeedDate.h"

#include "common/Str.h"

#include <algorithm>
#include <iterator>

namespace CommonUI
{

namespace
{

using namespace std::chrono;

constexpr std::u16string_view c_months = u"JanFebMarAprMayJunJulAugSepOctNovDec";

constexpr struct {
    std::u16string_view name;
    int hours;
} c_zones[] = {
    {u"Z", 0},    {u"UT", 0},   {u"UTC", 0},  {u"GMT", 0},  {u"EST", -5}, {u"EDT", -4},
    {u"CST", -6}, {u"CDT", -5}, {u"MST", -7}, {u"MDT", -6}, {u"PST", -8}, {u"PDT", -7},
};

// Reads a time from left to right; after a fault all that follows is one, too.
class CDateReader
{
public:
    explicit CDateReader(std::u16string_view text)
        : m_rest(text)
    {
    }

    bool IsDone() const { return m_isGood && m_rest.empty(); }
    bool HasMore() const { return !m_rest.empty(); }

    int Number(std::size_t least, std::size_t most)
    {
        const std::size_t count =
            std::min(m_rest.find_first_not_of(u"0123456789"), std::min(m_rest.size(), most));
        m_isGood = m_isGood && count >= least;
        int number = 0;
        for (const char16_t unit : Take(count))
            number = number * 10 + (unit - u'0');
        return number;
    }
    // Skips one of some units, if it is there.
    bool Skip(std::u16string_view units)
    {
        const bool isThere = !m_rest.empty() && units.find(m_rest[0]) != units.npos;
        Take(isThere ? 1 : 0);
        return isThere;
    }
    void Expect(std::u16string_view units) { m_isGood = Skip(units) && m_isGood; }
    void SkipWhile(std::u16string_view units)
    {
        while (Skip(units)) {
        }
    }
    unsigned int Month()
    {
        const std::size_t place = m_rest.size() < 3 ? c_months.npos : c_months.find(Take(3));
        m_isGood = m_isGood && place != c_months.npos && place % 3 == 0;
        return m_isGood ? static_cast<unsigned int>(place / 3 + 1) : 0;
    }
    seconds TimeOfDay()
    {
        const int hour = Number(2, 2);
        Expect(u":");
        const int minute = Number(2, 2);
        const int second = Skip(u":") ? Number(2, 2) : 0;
        if (Skip(u"."))
            SkipWhile(u"0123456789");
        m_isGood = m_isGood && hour < 24 && minute < 60 && second <= 60;
        return hours(hour) + minutes(minute) + seconds(second);
    }
    minutes Zone()
    {
        const bool isWest = Skip(u"-");
        if (!isWest && !Skip(u"+"))
            return NamedZone();
        const int hour = Number(2, 2);
        Skip(u":");
        const minutes offset = hours(hour) + minutes(Number(2, 2));
        return isWest ? -offset : offset;
    }

private:
    minutes NamedZone()
    {
        const auto* const found = std::find_if(std::begin(c_zones), std::end(c_zones),
                                               [this](const auto& zone) { return zone.name == m_rest; });
        m_isGood = m_isGood && found != std::end(c_zones);
        Take(m_rest.size());
        return hours(m_isGood ? found->hours : 0);
    }
    std::u16string_view Take(std::size_t count)
    {
        const std::u16string_view taken = m_rest.substr(0, count);
        m_rest.remove_prefix(count);
        return taken;
    }

    std::u16string_view m_rest;
    bool m_isGood = true;
};

std::optional<sys_seconds> Join(int ofYear, unsigned int ofMonth, int ofDay, seconds inDay, bool isDone)
{
    const year_month_day date{year(ofYear), month(ofMonth), day(static_cast<unsigned int>(ofDay))};
    return isDone && date.ok() ? std::optional(sys_days(date) + inDay) : std::nullopt;
}

std::optional<sys_seconds> ReadWithNumbers(std::u16string_view text)
{
    CDateReader reader(text);
    const int ofYear = reader.Number(4, 4);
    reader.Expect(u"-");
    const int ofMonth = reader.Number(2, 2);
    reader.Expect(u"-");
    const int ofDay = reader.Number(2, 2);
    seconds inDay{0};
    if (reader.HasMore()) {
        reader.Expect(u"Tt ");
        inDay = reader.TimeOfDay();
        inDay -= reader.Zone();
    }
    return Join(ofYear, static_cast<unsigned int>(ofMonth), ofDay, inDay, reader.IsDone());
}

// Years of two digits are of 1950 to 2049.
int WholeYear(int ofYear)
{
    return ofYear >= 100 ? ofYear : ofYear + (ofYear < 50 ? 2000 : 1900);
}

std::optional<sys_seconds> ReadWithNames(std::u16string_view text)
{
    const std::size_t comma = text.find(u',');
    CDateReader reader(comma == text.npos ? text : text.substr(comma + 1));
    reader.SkipWhile(u" ");
    const int ofDay = reader.Number(1, 2);
    reader.SkipWhile(u" ");
    const unsigned int ofMonth = reader.Month();
    reader.SkipWhile(u" ");
    const int ofYear = WholeYear(reader.Number(2, 4));
    reader.SkipWhile(u" ");
    seconds inDay = reader.TimeOfDay();
    reader.SkipWhile(u" ");
    inDay -= reader.Zone();
    return Join(ofYear, ofMonth, ofDay, inDay, reader.IsDone());
}

} // namespace

std::optional<sys_seconds> ReadFeedDate(std::u16string_view text)
{
    const CStr trimmed = CStr(text).Trim();
    const auto date = ReadWithNumbers(trimmed);
    return date ? date : ReadWithNames(trimmed);
}

} // namespace CommonUI
