#include "iconatlas_p.h"

#include "foundation/logging.h"

#include <iterator>

namespace ta::ui {

namespace {

constexpr int kTwice = 0x800; // marks a key of the images that are drawn at twice the size

constexpr IconAtlasEntry kEntries16[] = {
    { "", 0, 0 },
#include "atlases/icons_16.inc"
};
constexpr IconAtlasEntry kEntries24[] = {
    { "", 0, 0 },
#include "atlases/icons_24.inc"
};
constexpr IconAtlasEntry kEntries32[] = {
    { "", 0, 0 },
#include "atlases/icons_32.inc"
};
static_assert(std::size(kEntries16) == 57, "the 16 pixel set is whole");
static_assert(std::size(kEntries24) == 129, "the 24 pixel set is whole");
static_assert(std::size(kEntries32) == 47, "the 32 pixel set is whole");

// The images, made into arrays by the build.
constexpr unsigned char kImage16[] = {
#include "icons_16.png.inc"
};
constexpr unsigned char kImage24[] = {
#include "icons_24.png.inc"
};
constexpr unsigned char kImage32[] = {
#include "icons_32.png.inc"
};
constexpr unsigned char kImage16Twice[] = {
#include "icons_16@2x.png.inc"
};
constexpr unsigned char kImage24Twice[] = {
#include "icons_24@2x.png.inc"
};
constexpr unsigned char kImage32Twice[] = {
#include "icons_32@2x.png.inc"
};

// The fractions of the gap of 2 pixels are kept to six decimals.
template <size_t EntryCount, size_t DataSize>
constexpr IconAtlas atlas(int cellSize, float cellFraction, float gapFraction,
                          const IconAtlasEntry (&entries)[EntryCount],
                          const unsigned char (&data)[DataSize])
{
    return { cellSize, int(EntryCount), int(DataSize), cellFraction, gapFraction, entries, data };
}

constexpr IconAtlas kAtlas16 = atlas(16, 0.0625f, 0.007813f, kEntries16, kImage16);
constexpr IconAtlas kAtlas24 = atlas(24, 0.046875f, 0.003906f, kEntries24, kImage24);
constexpr IconAtlas kAtlas32 = atlas(32, 0.125f, 0.007813f, kEntries32, kImage32);
constexpr IconAtlas kAtlas16Twice = atlas(32, 0.0625f, 0.003906f, kEntries16, kImage16Twice);
constexpr IconAtlas kAtlas24Twice = atlas(48, 0.046875f, 0.001953f, kEntries24, kImage24Twice);
constexpr IconAtlas kAtlas32Twice = atlas(64, 0.125f, 0.003906f, kEntries32, kImage32Twice);

} // namespace

const IconAtlas &iconAtlas_16()
{
    return kAtlas16;
}

const IconAtlas &iconAtlas_24()
{
    return kAtlas24;
}

const IconAtlas &iconAtlas_32()
{
    return kAtlas32;
}

const IconAtlas &iconAtlas_16_2x()
{
    return kAtlas16Twice;
}

const IconAtlas &iconAtlas_24_2x()
{
    return kAtlas24Twice;
}

const IconAtlas &iconAtlas_32_2x()
{
    return kAtlas32Twice;
}

int iconAtlasKey(int size, double devicePixelRatio)
{
    return devicePixelRatio > 1.1 ? size | kTwice : size;
}

const IconAtlas &getAtlas(int size, double devicePixelRatio)
{
    switch (iconAtlasKey(size, devicePixelRatio)) {
    case 16:
        return iconAtlas_16();
    case 24:
        return iconAtlas_24();
    case 32:
        return iconAtlas_32();
    case 16 | kTwice:
        return iconAtlas_16_2x();
    case 24 | kTwice:
        return iconAtlas_24_2x();
    case 32 | kTwice:
        return iconAtlas_32_2x();
    default:
        qCWarning(lcUi) << "Unsupported atlas size" << size;
        return iconAtlas_24();
    }
}

} // namespace ta::ui
