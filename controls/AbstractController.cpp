// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/AbstractController.h"

#include "controls/PropertyBounds.h"
#include "controls/WideInteger.h"
#include "interfaces/IMemAPI.h"

#include <QByteArray>

#include <array>
#include <cmath>

namespace CommonController_MemAPI {

namespace {

constexpr int TextSize = 256;

bool isChannel(unsigned short ch) { return static_cast<short>(ch) >= 0; }

std::int64_t span(int minimum, int maximum) { return std::int64_t{maximum} - minimum; }

float position(int value, AbstractController::Range range)
{
    return static_cast<float>(span(range.minimum, value)) /
           static_cast<float>(span(range.minimum, range.maximum));
}

float unitClamped(float normalized)
{
    return normalized > 0.0f ? std::min(normalized, 1.0f) : 0.0f;
}

} // namespace

int AbstractController::Update(unsigned short, unsigned short, int, const char*)
{
    valueChangedRequest();
    return 0;
}

int AbstractController::UpdateProperty(unsigned short, unsigned short, int, int, int, bool,
                                       const char*)
{
    valueChangedRequest();
    return 0;
}

AbstractController::~AbstractController() { unbind(); }

void AbstractController::valueChanged() {}

void AbstractController::beginEdit() {}

void AbstractController::endEdit() {}

bool AbstractController::isBound() const { return m_memAPI && isChannel(m_ch); }

int AbstractController::value() const
{
    if (!isBound())
        return m_value;
    int value = 0;
    return m_memAPI->getValue(m_parameter, m_ch, &value, m_index) < 0 ? 0 : value;
}

void AbstractController::setValue(int value)
{
    const auto [minimum, maximum] = range();
    const int clamped = clampToRange(value, minimum, maximum);
    if (isBound()) {
        write(clamped);
    } else if (clamped != m_value) {
        m_value = clamped;
        valueChangedRequest();
    }
}

AbstractController::Range AbstractController::range() const
{
    if (!isBound())
        return {m_minimum, m_maximum};
    Range range;
    return m_memAPI->getRange(m_parameter, m_ch, &range.minimum, &range.maximum) < 0 ? Range()
                                                                                     : range;
}

int AbstractController::minimumValue() const { return range().minimum; }

void AbstractController::setMinimumValue(int minimum)
{
    if (m_memAPI || minimum == m_minimum)
        return;
    m_minimum = minimum;
    if (m_maximum >= minimum) {
        m_default = std::max(m_default, minimum);
        m_value = std::max(m_value, minimum);
    } else {
        m_maximum = m_default = m_value = minimum;
    }
    valueChangedRequest();
}

int AbstractController::maximumValue() const { return range().maximum; }

void AbstractController::setMaximumValue(int maximum)
{
    if (m_memAPI || maximum == m_maximum)
        return;
    m_maximum = maximum;
    if (m_minimum <= maximum) {
        m_default = std::min(m_default, maximum);
        m_value = std::min(m_value, maximum);
    } else {
        m_minimum = m_default = m_value = maximum;
    }
    valueChangedRequest();
}

int AbstractController::defaultValue() const
{
    if (!isBound())
        return m_default;
    int value = 0;
    return m_memAPI->getDefault(m_parameter, m_ch, &value) < 0 ? 0 : value;
}

void AbstractController::setDefaultValue(int value)
{
    if (!isBound())
        m_default = std::min(std::max(value, m_minimum), m_maximum);
}

float AbstractController::normalized() const
{
    const int now = value();
    return position(now, range());
}

float AbstractController::defaultNormalized() const
{
    const int preset = defaultValue();
    return position(preset, range());
}

void AbstractController::setNormalized(float normalized)
{
    const float unit = unitClamped(normalized);
    const auto [minimum, maximum] = range();
    const std::int64_t width = span(minimum, maximum);
    if (isBound()) {
        const double offset = double{unit * static_cast<float>(width)} + 0.5;
        write(clampToRange(minimum + truncateToInteger(offset), minimum, maximum));
        return;
    }
    const auto bin = truncateToInteger(double{unit * static_cast<float>(width + 1)});
    const int value = saturateToInt(std::min<std::int64_t>(minimum + bin, maximum));
    if (value == m_value)
        return;
    m_value = value;
    valueChangedRequest();
}

void AbstractController::setDefaultNormalized(float normalized)
{
    if (isBound())
        return;
    const float offset = normalized * static_cast<float>(span(m_minimum, m_maximum)) + 0.5f;
    m_default = clampToRange(m_minimum + truncateToInteger(double{offset}), m_minimum, m_maximum);
}

QString AbstractController::string() const
{
    if (!isBound())
        return m_string;
    int value = 0;
    std::array<char, TextSize> text = {};
    if (m_memAPI->getValue(m_parameter, m_ch, &value, m_index) < 0 ||
        m_memAPI->valueToString(m_parameter, m_ch, value, text.data(), TextSize) < 0)
        return {};
    return QString::fromLocal8Bit(text.data(),
                                  static_cast<qsizetype>(qstrnlen(text.data(), TextSize)));
}

int AbstractController::setString(const QString& string)
{
    if (isBound()) {
        int value = 0;
        const QByteArray text = string.toLocal8Bit();
        const int status = m_memAPI->stringToValue(m_parameter, m_ch, text.constData(), &value);
        return status < 0 ? status : write(value);
    }
    if (string == m_string)
        return 0;
    m_string = string;
    bool isNumber = false;
    const int number = string.toInt(&isNumber, 10);
    if (isNumber)
        m_value = std::min(std::max(number, m_minimum), m_maximum);
    valueChangedRequest();
    return 0;
}

void AbstractController::editValue(int value)
{
    withEdit([&] { setValue(value); });
}

void AbstractController::editNormalized(float normalized)
{
    withEdit([&] { setNormalized(normalized); });
}

int AbstractController::editString(const QString& string)
{
    int status = 0;
    withEdit([&] { status = setString(string); });
    return status;
}

void AbstractController::editToDefault()
{
    withEdit([&] { setNormalized(defaultNormalized()); });
}

bool AbstractController::isBoundTo(const IMemAPI* memAPI, unsigned short parameter,
                                   unsigned short ch, unsigned short index) const
{
    return m_memAPI == memAPI && m_parameter == parameter && m_ch == ch && m_index == index;
}

void AbstractController::bind(IMemAPI* memAPI, unsigned short parameter, unsigned short ch,
                              unsigned short index)
{
    if (isBoundTo(memAPI, parameter, ch, index))
        return;
    const Lifetime::Guard alive(m_lifetime);
    closeEdits();
    if (!alive)
        return;
    unbind();
    m_memAPI = memAPI;
    m_parameter = parameter;
    m_ch = ch;
    m_index = index;
    if (isBound())
        m_memAPI->registerObserver(m_parameter, m_ch, this);
    if (alive)
        valueChangedRequest();
}

void AbstractController::unbind()
{
    if (isBound())
        m_memAPI->unregisterObserver(m_parameter, m_ch, this);
    m_memAPI = nullptr;
}

bool AbstractController::storeScale(double scale)
{
    const double clamped = atLeast(MinimumScale, scale);
    if (!std::isfinite(clamped) || clamped == m_scale)
        return false;
    m_scale = clamped;
    return true;
}

void AbstractController::openEdit()
{
    ++m_openEdits;
    beginEdit();
}

void AbstractController::closeEdit()
{
    if (m_openEdits == 0)
        return;
    --m_openEdits;
    endEdit();
}

void AbstractController::closeEdits()
{
    const Lifetime::Guard alive(m_lifetime);
    while (alive && m_openEdits > 0)
        closeEdit();
}

int AbstractController::write(int value)
{
    return m_memAPI->setValue(m_parameter, m_ch, value, m_index, 0, 1);
}

} // namespace CommonController_MemAPI
