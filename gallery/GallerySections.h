// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

class GallerySection;
class HostMemory;
class QWidget;

/// The gallery's sections in their order, as children of \a parent, with controls bound to
/// \a memory. Writes to \a memory.
std::vector<GallerySection*> makeGallerySections(HostMemory& memory, QWidget* parent);

/// One control each.
GallerySection* makeKnobSection(HostMemory& memory, QWidget* parent);
GallerySection* makeTextSection(HostMemory& memory, QWidget* parent);
GallerySection* makePushButtonSection(HostMemory& memory, QWidget* parent);
GallerySection* makePullDownSection(HostMemory& memory, QWidget* parent);
GallerySection* makeButtonGroupSection(HostMemory& memory, QWidget* parent);
GallerySection* makeFaderSection(HostMemory& memory, QWidget* parent);
GallerySection* makeMeterSection(HostMemory& memory, QWidget* parent);
GallerySection* makeRoundMeterSection(HostMemory& memory, QWidget* parent);
GallerySection* makeSvgLabelSection(QWidget* parent);
GallerySection* makeChannelNameSection(QWidget* parent);
