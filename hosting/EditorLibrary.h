// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/Result.h"

#include <QCoreApplication>
#include <QPluginLoader>
#include <QString>

class IModelInfo;
class IVaskEffect;
class IVaskEffectEditor2;
class QWidget;

/// The plug-in library that makes equalizer editors. Once loaded it stays loaded until the process
/// ends: styles, resources and meta-types of it may be in use until then.
class EditorLibrary
{
    Q_DECLARE_TR_FUNCTIONS(EditorLibrary)

public:
    /// The kind of effect that this mixer's equalizer slots take.
    static constexpr int equalizerType = 8;

    /// Where the library lies beside this program, which is in \a programFolder.
    static QString fileBeside(const QString& programFolder);

    /// Loads \a file if it is a library that makes equalizer editors.
    Status load(const QString& file);

    /// A new editor for channel \a ch as a child of \a parent, which owns it; null if none is
    /// loaded or the plug-in makes none.
    IVaskEffectEditor2* create(QWidget* parent, unsigned short ch, IModelInfo* modelInfo) const;

private:
    Status inspect(const QString& file);
    Status adopt(const QString& file);

    QPluginLoader m_loader;
    IVaskEffect* m_effect = nullptr;
};
