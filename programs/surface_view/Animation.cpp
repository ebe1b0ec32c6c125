#include "programs/surface_view/Animation.h"

#include "common/file/FileReplacement.h"
#include "measurement/NamedSet.h"
#include "programs/command_line/ForOption.h"
#include "programs/surface_view/GifWriter.h"

#include <cmath>
#include <stdexcept>
#include <string>

namespace SurfaceView
{

namespace
{

using CommonUI::SAnimationSettings;

SPicture DrawFrame(const SAnimationSettings& animation, int frame, const FDrawFrame& draw)
{
    const CommonUI::SAnimationView view = animation.GetView(animation.GetPosition(frame));
    // The camera looks along the y axis at an azimuth of 0 and turns towards the x axis, so the eye goes
    // clockwise.
    return draw({.azimuth = -view.azimuth, .elevation = view.elevation}, view.zoom);
}

std::filesystem::path NumberedPath(const std::filesystem::path& path, int frame, int count)
{
    const std::string last = std::to_string(count);
    std::string number = std::to_string(frame + 1);
    number.insert(0, std::max<std::size_t>(4, last.size()) - number.size(), '0');
    std::filesystem::path name = path.stem();
    name += "-" + number;
    name += path.extension();
    return path.parent_path() / name;
}

int WritePictures(const SAnimationSettings& animation, const std::filesystem::path& path,
                  const FDrawFrame& draw, const FFrameProgress& progress)
{
    const int count = animation.GetFrameCount();
    for (int frame = 0; frame < count; ++frame) {
        progress(static_cast<double>(frame) / count);
        WritePng(DrawFrame(animation, frame, draw), NumberedPath(path, frame, count));
    }
    return count;
}

int WriteGif(const SAnimationSettings& animation, const std::filesystem::path& path, const FDrawFrame& draw,
             const FFrameProgress& progress)
{
    constexpr int c_mostPerSecond = 50;
    const int step = (animation.framesPerSecond + c_mostPerSecond - 1) / c_mostPerSecond;
    const auto timeOf = [&](int frame) { return std::lround(100.0 * frame / animation.framesPerSecond); };
    const int count = animation.GetFrameCount();
    CGifWriter gif(animation.loop);
    CommonUI::CFileReplacement file;
    CommonUI::CStr reason;
    const auto require = [&](bool isDone) {
        if (!isDone)
            throw std::runtime_error(path.string() + ": " + reason.ToUtf8());
    };
    require(file.Open(path.u16string(), reason));
    int written = 0;
    for (int frame = 0; frame < count; frame += step, ++written) {
        progress(static_cast<double>(frame) / count);
        const int next = std::min(frame + step, count);
        gif.Add(DrawFrame(animation, frame, draw), static_cast<int>(timeOf(next) - timeOf(frame)));
        require(file.Write(gif.TakeBytes(), reason));
    }
    gif.Finish();
    require(file.Write(gif.TakeBytes(), reason) && file.Replace(reason));
    return written;
}

} // namespace

SAnimationSettings LoadAnimation(const std::string& userSpec)
{
    namespace Measurement = CommonUI::Measurement;
    return CommandLine::ForOption("--animation", [&] {
        const auto spec = CommonUI::CStr::FromUtf8(userSpec);
        CommonUI::CSettingsFactory factory;
        Measurement::SNamedSet set = Measurement::LoadNamedSet(
            factory, spec, {CommonUI::ESettingType::Animation}, u"this is no animation (Animation)");
        return Measurement::ReadNamedSet<SAnimationSettings>(set, spec);
    });
}

int WriteAnimation(const SAnimationSettings& animation, const std::filesystem::path& path,
                   const FDrawFrame& draw, const FFrameProgress& progress)
{
    const auto write = path.extension() == ".gif" ? WriteGif : WritePictures;
    return write(animation, path, draw, progress);
}

} // namespace SurfaceView
