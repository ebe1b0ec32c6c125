#include "settings/AnimationSettings.h"

#include "settings/detail/SettingFields.h"

#include <algorithm>
#include <cmath>

namespace CommonUI
{

namespace
{

constexpr std::u16string_view c_section = u"Animation";

template<class TVisitor, class TSettings>
void VisitFields(TVisitor& visit, TSettings& settings)
{
    visit(u"Duration", settings.duration, {0.1, 3600});
    visit(u"FramesPerSecond", settings.framesPerSecond, {1, 120});
    visit(u"Loop", settings.loop);
}

CStr KeyFrameKey(std::size_t index)
{
    return CStr::Format(u"KeyFrame%u", static_cast<unsigned>(index + 1));
}

/// A key frame is stored as the list of its position, azimuth, elevation and zoom.
bool IsKeyFrame(const std::vector<double>& values)
{
    constexpr CRange<double> allowed[] = {{0, 1}, {-36000, 36000}, {-90, 90}, {0.01, 100}};
    return std::ranges::equal(
        values, allowed, [](double value, const CRange<double>& range) { return range.Contains(value); });
}

void ReadKeyFrames(Detail::CSettingReader& reader, std::vector<SAnimationKeyFrame>& keyFrames)
{
    for (CStr key = KeyFrameKey(0); reader.GetIni().HasKey(key); key = KeyFrameKey(keyFrames.size())) {
        const std::vector<double> values = reader.GetIni().ReadDoubles(key);
        if (!IsKeyFrame(values))
            return reader.Refuse(key + u": no position, azimuth, elevation and zoom within their ranges");
        if (!keyFrames.empty() && values[0] < keyFrames.back().position)
            return reader.Refuse(key + u": before the key frame in front of it");
        if (keyFrames.size() == SAnimationSettings::c_mostKeyFrames)
            return reader.Refuse(key + u": too many key frames");
        keyFrames.push_back({values[0], {values[1], values[2], values[3]}});
    }
    if (keyFrames.empty())
        reader.Refuse(u"no key frame");
}

} // namespace

bool SAnimationSettings::Load(CInifile& ini)
{
    Detail::CSettingReader reader(ini, ESettingType::Animation, c_section);
    SAnimationSettings read{.keyFrames = {}};
    VisitFields(reader, read);
    ReadKeyFrames(reader, read.keyFrames);
    if (reader.IsUsable())
        *this = std::move(read);
    return reader.IsUsable();
}

void SAnimationSettings::Save(CInifile& ini) const
{
    Detail::CSettingWriter writer(ini, c_section);
    VisitFields(writer, *this);
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
