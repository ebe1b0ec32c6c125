#pragma once

#include <functional>

class QString;

namespace Gallery
{

/// Where pages tell what their controls have called.
using FLog = std::function<void(const QString&)>;

} // namespace Gallery
