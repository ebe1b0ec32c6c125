#pragma once

#include "view/View.h"

namespace SurfaceView
{

inline const SBox c_box{
    .x = 1, .y = 0.75, .z = 0.25, .heights = {-1.8e-6, 0.7e-6}, .width = 64e-6, .depth = 48e-6};

struct SLook {
    SDirection direction;
    bool orthographic;
};

inline const SLook c_looks[]{{{30, 35}, false},  {{30, 35}, true},  {{0, 35}, false},
                             {{200, 60}, false}, {{30, 90}, false}, {{0, 90}, true},
                             {{-40, 0}, true},   {{90, 0}, false},  {{135, 20}, true}};

} // namespace SurfaceView
