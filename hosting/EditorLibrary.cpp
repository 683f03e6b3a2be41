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

QString EditorLibrary::load(const QString& file)
{
    const QString path = QFileInfo(file).absoluteFilePath();
    QString error = errorOfLibraryFile(path);
    if (error.isEmpty())
        error = inspect(path);
    if (error.isEmpty())
        error = adopt(path);
    return error.isEmpty() ? QString() : QStringLiteral("The plug-in %1 %2.").arg(path, error);
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
QString EditorLibrary::inspect(const QString& file)
{
    m_loader.setFileName(file);
    const QJsonObject metaData = m_loader.metaData();
    if (metaData.isEmpty())
        return QStringLiteral("is a library, but no Qt plug-in that this program can load");
    const QString interface = metaData.value(QLatin1String("IID")).toString();
    if (interface != effectInterface)
        return QStringLiteral("is a Qt plug-in of another kind (%1, not %2)")
            .arg(interface, effectInterface);
    return QString();
}

QString EditorLibrary::adopt(const QString& file)
{
    if (!m_loader.load())
        return QStringLiteral("cannot be loaded: %1")
            .arg(m_loader.errorString().remove(file).simplified());
    QObject* root = m_loader.instance();
    auto* effect = qobject_cast<IVaskEffect*>(root);
    auto* channelEffect = qobject_cast<IVaskEffectChFx*>(root);
    if (!effect || !channelEffect) {
        m_loader.unload();
        return QStringLiteral("makes no channel effect");
    }
    const int type = channelEffect->fxType();
    if (type != equalizerType) {
        m_loader.unload();
        return QStringLiteral("is an effect of type %1; an equalizer is type %2")
            .arg(type)
            .arg(equalizerType);
    }
    m_effect = effect;
    return QString();
}
