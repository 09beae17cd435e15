#pragma once

#include "comparison.h"

namespace bench {

// One function per bench_<theme>.cpp; main() puts their rows into one table.
Rows buttonRows();
Rows paletteRows();
Rows popupRows();
Rows sceneGraphRows();
Rows sliderRows();
Rows textRows();
Rows thumbnailRows();

} // namespace bench
