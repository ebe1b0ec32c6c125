#pragma once

#include "settings/readers/detail/SettingsReader.h"
#include "settings/readers/detail/SettingsWriter.h"

/// @file
/// One function names the keys of a set in their order and calls either a reader or a writer, which have the
/// same members, for each value. So what is written and what is read cannot differ.
