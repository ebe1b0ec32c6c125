#pragma once

// The system's other headers need it before them.
#include <windows.h>
