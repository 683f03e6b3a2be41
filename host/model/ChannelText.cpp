// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/ChannelText.h"

#include "parameters/ParameterText.h"

#include <QCoreApplication>
#include <QJsonDocument>

namespace {

constexpr QLatin1String mimeType("application/x-zolta-equalizer+json");
constexpr QLatin1String channelKey("zolta-equalizer");
constexpr qsizetype largestText = 1 << 16;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ChannelText)
};

Result<int> readValue(const QJsonValue& value, const Parameter& parameter)
{
    const QLatin1String title(parameter.title);
    if (!value.isString())
        return Error{Texts::tr("The value of \"%1\" must be text.").arg(title)};
    const QString text = value.toString();
    const auto parsed = parseParameter(parameter, text.toStdString());
    if (!parsed)
        return Error{Texts::tr("\"%1\" is not a value of \"%2\".").arg(text, title)};
    return *parsed;
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

Result<HostMemory::Values> ChannelText::fromJson(const QJsonObject& object,
                                                 const HostMemory::Values& values)
{
    HostMemory::Values result = values;
    for (std::size_t i = 0; i < parameterCount; ++i) {
        const Parameter& parameter = parameterTable[i];
        const QJsonValue value = object.value(QLatin1String(parameter.title));
        if (value.isUndefined())
            continue;
        const Result<int> read = readValue(value, parameter);
        if (!read.isOk())
            return Error{read.error()};
        result[i] = read.value();
    }
    return result;
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

Result<HostMemory::Values> ChannelText::fromMime(const QMimeData* data,
                                                 const HostMemory::Values& values)
{
    const QJsonObject object = data ? objectIn(data) : QJsonObject();
    if (object.isEmpty())
        return Error{Texts::tr("Cannot paste. The clipboard holds no equalizer settings.")};
    Result<HostMemory::Values> read = fromJson(object, values);
    if (!read.isOk())
        return Error{Texts::tr("Cannot paste. %1").arg(read.error())};
    return read;
}
