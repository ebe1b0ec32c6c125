#include "settings/readers/AnimationSettings.h"

#include "settings/readers/detail/SettingsExchange.h"

#include <algorithm>
#include <cmath>

namespace CommonUI
{

namespace
{

constexpr std::u16string_view c_section = u"Animation";

template<class TStore, class TSettings>
void Exchange(TStore& store, TSettings& settings)
{
    store.NumberWithin(u"Duration", settings.duration, {0.1, 3600});
    store.IntegerWithin(u"FramesPerSecond", settings.framesPerSecond, {1, 120});
    store.Flag(u"Loop", settings.loop);
}

CStr KeyFrameKey(std::size_t index)
{
    return CStr::Format(u"KeyFrame%u", static_cast<unsigned>(index + 1));
}

// A key frame is stored as the list of its position, azimuth, elevation and zoom.
bool IsKeyFrame(const std::vector<double>& values)
{
    constexpr CRange<double> c_allowed[] = {{0, 1}, {-36000, 36000}, {-90, 90}, {0.01, 100}};
    return std::ranges::equal(
        values, c_allowed, [](double value, const CRange<double>& range) { return range.Contains(value); });
}

void ReadKeyFrames(CSettingsReader& reader, std::vector<SAnimationKeyFrame>& keyFrames)
{
    for (CStr key = KeyFrameKey(0); reader.GetIni().HasKey(key); key = KeyFrameKey(keyFrames.size())) {
        const std::vector<double> values = reader.GetIni().ReadDoubles(key);
        const double earliest = keyFrames.empty() ? 0 : keyFrames.back().position;
        if (!reader.Require(IsKeyFrame(values), key, u"a position and a view") ||
            !reader.Require(values[0] >= earliest, key, u"at or behind the key frame before it") ||
            !reader.Require(keyFrames.size() < SAnimationSettings::c_mostKeyFrames, u"too many key frames"))
            return;
        keyFrames.push_back({values[0], {values[1], values[2], values[3]}});
    }
    reader.Require(!keyFrames.empty(), u"no key frame");
}

} // namespace

bool SAnimationSettings::Load(CInifile& ini)
{
    CSettingsReader reader(ini, c_section);
    SAnimationSettings read{.keyFrames = {}};
    Exchange(reader, read);
    ReadKeyFrames(reader, read.keyFrames);
    if (reader.IsUsable())
        *this = std::move(read);
    return reader.IsUsable();
}

void SAnimationSettings::Save(CInifile& ini) const
{
    CSettingsWriter writer(ini, c_section);
    Exchange(writer, *this);
    for (std::size_t i = 0; i < keyFrames.size(); ++i) {
        const SAnimationView& view = keyFrames[i].view;
        ini.WriteDoubles(KeyFrameKey(i), {keyFrames[i].position, view.azimuth, view.elevation, view.zoom});
    }
}

int SAnimationSettings::GetFrameCount() const
{
    return std::max(1, static_cast<int>(std::lround(duration * framesPerSecond)));
}

double SAnimationSettings::GetPosition(int frame) const
{
    const int steps = loop ? GetFrameCount() : GetFrameCount() - 1;
    return steps == 0 ? 0 : static_cast<double>(frame) / steps;
}

SAnimationView SAnimationSettings::GetView(double position) const
{
    if (keyFrames.empty())
        return {};
    // A NaN is not below any position: so that it finds the first key frame, it is taken for 0.
    const double at = std::isnan(position) ? 0 : position;
    const auto next = std::ranges::upper_bound(keyFrames, at, {}, &SAnimationKeyFrame::position);
    if (next == keyFrames.begin())
        return keyFrames.front().view;
    if (next == keyFrames.end())
        return keyFrames.back().view;
    const SAnimationKeyFrame& last = *std::prev(next);
    const double share = (at - last.position) / (next->position - last.position);
    return {std::lerp(last.view.azimuth, next->view.azimuth, share),
            std::lerp(last.view.elevation, next->view.elevation, share),
            std::lerp(last.view.zoom, next->view.zoom, share)};
}

} // namespace CommonUI
