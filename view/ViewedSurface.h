#pragma once

#include "measurement/ApplySteps.h"
#include "view/DetailLevels.h"
#include "view/HeightTree.h"

#include <filesystem>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace SurfaceView
{

/// A surface with half the points along a side, a quarter and so on, while these are more than c_mostPoints:
/// a third more memory, which nobody needs before something is looked at closely.
class CCoarserSurfaces
{
public:
    /// They are made by the first call, which takes some time for a large surface; any thread may call.
    /// @param surface the same one each time
    const std::vector<CommonUI::Analysis::SSurface>& Get(const CommonUI::Analysis::SSurface& surface) const;

private:
    mutable std::once_flag m_once;
    mutable std::vector<CommonUI::Analysis::SSurface> m_surfaces;
};

/// A surface with what its views and its analysis need, made once and never changed.
struct SViewedSurface {
    std::filesystem::path path{};
    /// Shared with who computes results of it, which may take longer than somebody looks at it.
    std::shared_ptr<const CommonUI::Measurement::SInput> input{};
    /// From the lowest to the highest point, m, and around those of a flat surface; empty where all points
    /// are missing.
    std::optional<CommonUI::CRange<double>> heights{};
    std::optional<SBox> box{}; ///< empty where there is nothing to see in three dimensions
    std::vector<SMesh> levels{};
    CHeightTree tree{};
    CCoarserSurfaces coarser{};

    const CommonUI::Analysis::SSurface& GetSurface() const { return input->surface; }
};

/// Takes some time for a large surface; any thread may call.
std::shared_ptr<const SViewedSurface> MakeViewedSurface(const std::filesystem::path& path,
                                                        CommonUI::Analysis::SSurface surface);
/// The same of a surface with what was done to it.
std::shared_ptr<const SViewedSurface>
MakeViewedSurface(const std::filesystem::path& path,
                  std::shared_ptr<const CommonUI::Measurement::SInput> input);

} // namespace SurfaceView
