#pragma once

#include "formats/SurfaceReading.h"
#include "view/ViewedSurface.h"

#include <filesystem>
#include <memory>

class QWidget;

namespace Workbench
{

/// Reads a surface while a dialog shows the progress of what takes longer. Cancel gives it up at once, even
/// where the drive does not answer.
/// @param parent see CQtProgressThreadDialog
/// @return null where the user has cancelled
/// @param read see CSurfaceReading
/// @throws CommonUI::Formats::EReadError
std::shared_ptr<const SurfaceView::SViewedSurface>
OpenSurface(QWidget* parent, const std::filesystem::path& path,
            const CommonUI::Formats::CSurfaceReading::FRead& read);

} // namespace Workbench
