// SPDX-License-Identifier: GPL-3.0-or-later
#include "hosting/EditorLibrary.h"

#include "hosting/LibraryFile.h"
#include "interfaces/IVaskEffect.h"
#include "interfaces/IVaskEffectChFx.h"
#include "interfaces/IVaskEffectEditor2.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonObject>

namespace {

constexpr QLatin1String effectInterface("org.zolta.fx.effect");

} // namespace

QString EditorLibrary::fileBeside(const QString& programFolder)
{
    return QDir::cleanPath(programFolder + QLatin1String("/../lib/zolta/libZolta.so"));
}

Status EditorLibrary::load(const QString& file)
{
    const QString path = QFileInfo(file).absoluteFilePath();
    if (const Status status = checkLibraryFile(path); !status.isOk())
        return status;
    if (const Status status = inspect(path); !status.isOk())
        return status;
    return adopt(path);
}

IVaskEffectEditor2* EditorLibrary::create(QWidget* parent, unsigned short ch,
                                          IModelInfo* modelInfo) const
{
    IVaskEffectEditor* editor = m_effect ? m_effect->create(parent, ch, modelInfo) : nullptr;
    auto* zoomable = dynamic_cast<IVaskEffectEditor2*>(editor);
    if (!zoomable)
        delete editor;
    return zoomable;
}

// Decides by the metadata, before any code of the library runs.
Status EditorLibrary::inspect(const QString& file)
{
    m_loader.setFileName(file);
    const QJsonObject metaData = m_loader.metaData();
    if (metaData.isEmpty())
        return Error{
            tr("The plug-in %1 is a library, but not a Qt plug-in that this program can load.")
                .arg(file)};
    const QString interface = metaData.value(QLatin1String("IID")).toString();
    if (interface != effectInterface)
        return Error{tr("The plug-in %1 is a Qt plug-in of another kind (%2, not %3).")
                         .arg(file, interface, effectInterface)};
    return {};
}

Status EditorLibrary::adopt(const QString& file)
{
    if (!m_loader.load())
        return Error{tr("The plug-in %1 cannot be loaded: %2.")
                         .arg(file, m_loader.errorString().remove(file).simplified())};
    QObject* root = m_loader.instance();
    auto* effect = qobject_cast<IVaskEffect*>(root);
    auto* channelEffect = qobject_cast<IVaskEffectChFx*>(root);
    if (!effect || !channelEffect) {
        m_loader.unload();
        return Error{tr("The plug-in %1 does not provide a channel effect.").arg(file)};
    }
    const int type = channelEffect->fxType();
    if (type != equalizerType) {
        m_loader.unload();
        return Error{tr("The plug-in %1 is an effect of type %2; an equalizer is type %3.")
                         .arg(file, QString::number(type), QString::number(equalizerType))};
    }
    m_effect = effect;
    return {};
}
