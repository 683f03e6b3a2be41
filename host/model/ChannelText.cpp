// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/ChannelText.h"

#include "parameters/ParameterText.h"

#include <QCoreApplication>
#include <QJsonDocument>

namespace {

constexpr QLatin1String mimeType("application/x-zolta-equalizer+json");
constexpr QLatin1String channelKey("zolta-equalizer");
constexpr qsizetype largestText = 1 << 16;

QString errorOf(const QJsonValue& value, const Parameter& parameter, int* raw)
{
    if (!value.isString())
        return QCoreApplication::translate("ChannelText", "the value of \"%1\" is no text")
            .arg(QLatin1String(parameter.title));
    const auto parsed = parseParameter(parameter, value.toString().toStdString());
    if (!parsed)
        return QCoreApplication::translate("ChannelText", "\"%1\" is no value of \"%2\"")
            .arg(value.toString(), QLatin1String(parameter.title));
    *raw = *parsed;
    return QString();
}

QJsonObject objectIn(const QMimeData* data)
{
    const QByteArray bytes =
        data->hasFormat(mimeType) ? data->data(mimeType) : data->text().left(largestText).toUtf8();
    return QJsonDocument::fromJson(bytes).object().value(channelKey).toObject();
}

} // namespace

QJsonObject ChannelText::toJson(const HostMemory::Values& values)
{
    QJsonObject object;
    for (std::size_t i = 0; i < parameterCount; ++i) {
        const Parameter& parameter = parameterTable[i];
        object[QLatin1String(parameter.title)] =
            QString::fromStdString(formatParameter(parameter, values[i]).value_or(""));
    }
    return object;
}

ChannelText::Content ChannelText::fromJson(const QJsonObject& object,
                                           const HostMemory::Values& values)
{
    Content content{values, QString()};
    for (std::size_t i = 0; i < parameterCount && content.error.isEmpty(); ++i) {
        const QJsonValue value = object.value(QLatin1String(parameterTable[i].title));
        if (!value.isUndefined())
            content.error = errorOf(value, parameterTable[i], &content.values[i]);
    }
    return content;
}

std::unique_ptr<QMimeData> ChannelText::toMime(const HostMemory::Values& values)
{
    const QByteArray text =
        QJsonDocument(QJsonObject{{channelKey, toJson(values)}}).toJson(QJsonDocument::Indented);
    auto data = std::make_unique<QMimeData>();
    data->setData(mimeType, text);
    data->setText(QString::fromUtf8(text));
    return data;
}

bool ChannelText::canPaste(const QMimeData* data)
{
    return data && (data->hasFormat(mimeType) || data->hasText());
}

ChannelText::Content ChannelText::fromMime(const QMimeData* data, const HostMemory::Values& values)
{
    const QJsonObject object = data ? objectIn(data) : QJsonObject();
    if (object.isEmpty())
        return {values, QCoreApplication::translate(
                            "ChannelText", "the clipboard holds no settings of an equalizer")};
    return fromJson(object, values);
}
