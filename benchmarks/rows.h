#pragma once

#include "comparison.h"

namespace bench {

// One function per bench_<theme>.cpp; main() puts their rows into one table.
Rows buttonRows();
Rows delegateRows();
Rows dialogRows();
Rows dragRows();
Rows dropRows();
Rows menuRows();
Rows paletteRows();
Rows popupRows();
Rows sceneGraphRows();
Rows scrollingRows();
Rows sliderRows();
Rows textRows();
Rows thumbnailRows();
Rows tooltipRows();

} // namespace bench
