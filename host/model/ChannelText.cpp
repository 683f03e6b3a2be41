// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/ChannelText.h"

#include "parameters/ParameterText.h"

#include <QCoreApplication>
#include <QJsonDocument>

namespace {

constexpr QLatin1String mimeType("application/x-zolta-equalizer+json");
constexpr QLatin1String channelKey("zolta-equalizer");
constexpr qsizetype largestText = 1 << 16;

enum class Problem { None, NotText, NotValue };

struct Reading
{
    HostMemory::Values values;
    Problem problem;
    QString title; // of the parameter with the problem
    QString text;  // its value
};

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ChannelText)
};

void readValue(const QJsonValue& value, std::size_t index, Reading* reading)
{
    const Parameter& parameter = parameterTable[index];
    reading->title = QLatin1String(parameter.title);
    reading->text = value.toString();
    const auto parsed = parseParameter(parameter, reading->text.toStdString());
    if (!value.isString())
        reading->problem = Problem::NotText;
    else if (!parsed)
        reading->problem = Problem::NotValue;
    else
        reading->values[index] = *parsed;
}

Reading read(const QJsonObject& object, const HostMemory::Values& values)
{
    Reading reading{values, Problem::None, {}, {}};
    for (std::size_t i = 0; i < parameterCount && reading.problem == Problem::None; ++i) {
        const QJsonValue value = object.value(QLatin1String(parameterTable[i].title));
        if (!value.isUndefined())
            readValue(value, i, &reading);
    }
    return reading;
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
    const Reading reading = read(object, values);
    switch (reading.problem) {
    case Problem::NotText:
        return {values, Texts::tr("the value of \"%1\" must be text").arg(reading.title)};
    case Problem::NotValue:
        return {values,
                Texts::tr("\"%1\" is not a value of \"%2\"").arg(reading.text, reading.title)};
    default:
        return {reading.values, QString()};
    }
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
        return Error{Texts::tr("Cannot paste: the clipboard holds no equalizer settings.")};
    const Reading reading = read(object, values);
    switch (reading.problem) {
    case Problem::NotText:
        return Error{
            Texts::tr("Cannot paste: the value of \"%1\" must be text.").arg(reading.title)};
    case Problem::NotValue:
        return Error{Texts::tr("Cannot paste: \"%1\" is not a value of \"%2\".")
                         .arg(reading.text, reading.title)};
    default:
        return reading.values;
    }
}
