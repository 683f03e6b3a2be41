// SPDX-License-Identifier: GPL-3.0-or-later
#include "widgets/SvgRasters.h"

#include <QCache>

namespace SvgRasters {

namespace {

using Cache = QCache<SvgRasterKey, SvgRaster>;

// Documents that outlive the cache at the end of the process still ask it to drop their rasters.
bool isAlive = false;

struct Guarded
{
    Guarded() { isAlive = true; }
    ~Guarded() { isAlive = false; }

    Cache cache = Cache(MaximumBytes);
};

Cache& rasters()
{
    static Guarded guarded;
    return guarded.cache;
}

} // namespace

const SvgRaster* find(const SvgRasterKey& key) { return rasters().object(key); }

const SvgRaster* insert(const SvgRasterKey& key, SvgRaster raster)
{
    const qsizetype size = raster.image.sizeInBytes();
    auto* kept = new SvgRaster(std::move(raster));
    return rasters().insert(key, kept, size) ? kept : nullptr;
}

void drop(quint64 document)
{
    if (!isAlive)
        return;
    const QList<SvgRasterKey> keys = rasters().keys();
    for (const SvgRasterKey& key : keys) {
        if (key.document == document)
            rasters().remove(key);
    }
}

int count() { return static_cast<int>(rasters().size()); }

qsizetype bytes() { return rasters().totalCost(); }

} // namespace SvgRasters
