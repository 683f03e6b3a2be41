// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/hosting/StandInEditor.h"

#include "equalizer/BandDesign.h"
#include "equalizer/EqualizerParameters.h"
#include "interfaces/IMemAPI.h"
#include "interfaces/IMeterNotifier.h"
#include "interfaces/IModelInfo.h"

#include <QPainter>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

constexpr int designWidth = 400;
constexpr int designHeight = 240;

} // namespace

StandInEditor::StandInEditor(QWidget* parent)
    : IVaskEffectEditor2(parent)
{
    resize(designWidth, designHeight);
}

StandInEditor::~StandInEditor()
{
    if (m_memory)
        qWarning("The host deleted the editor without detaching it");
}

void StandInEditor::setMemAPI(IMemAPI* memAPI)
{
    log(memAPI ? u"setMemAPI"_s : u"setMemAPI null"_s);
    bind(false);
    IMeterNotifier* meters = nullptr;
    if (m_memory && m_memory->queryMeterNotifier(&meters) >= 0)
        meters->removeMeterObserver(this);
    m_memory = memAPI;
    m_component.setMemAPI(memAPI);
    if (m_memory && m_memory->queryMeterNotifier(&meters) >= 0)
        meters->addMeterObserver(this);
    bind(true);
}

void StandInEditor::setModelInfo(IModelInfo* modelInfo)
{
    log(u"setModelInfo"_s);
    m_model = modelInfo;
    m_component.setModelInfo(modelInfo);
}

void StandInEditor::setCh(int ch, int ch2)
{
    log(u"setCh %1 %2"_s.arg(ch).arg(ch2));
    bind(false);
    m_channel = ch;
    m_component.setCh(ch);
    bind(true);
}

void StandInEditor::setStereo(bool stereo) { log(u"setStereo %1"_s.arg(stereo)); }

void StandInEditor::setFs(int fs) { log(u"setFs %1"_s.arg(fs)); }

void StandInEditor::setOn(bool on) { log(u"setOn %1"_s.arg(on)); }

void StandInEditor::setDialEditMode(int mode) { log(u"setDialEditMode %1"_s.arg(mode)); }

void StandInEditor::setSliderEditMode(int mode) { log(u"setSliderEditMode %1"_s.arg(mode)); }

void StandInEditor::setScale(double scale)
{
    log(u"setScale %1"_s.arg(scale));
    m_scale = scale;
    resize(static_cast<int>(designWidth * scale + 0.5),
           static_cast<int>(designHeight * scale + 0.5));
}

void StandInEditor::setEditorSettings(const QMap<QString, QVariant>& settings)
{
    log(u"setEditorSettings"_s);
    setProperty("settings", settings);
}

int StandInEditor::Update(unsigned short parameter, unsigned short ch, int value, const char* text)
{
    log(u"Update %1 %2 %3 %4"_s.arg(parameter).arg(ch).arg(value).arg(QString::fromUtf8(text)));
    update();
    return 0;
}

int StandInEditor::UpdateProperty(unsigned short, unsigned short, int, int, int, bool, const char*)
{
    return 0;
}

void StandInEditor::notifyMeterDbUpdated(unsigned int* values, unsigned int count)
{
    QVariantList words;
    for (unsigned int i = 0; i < count; ++i)
        words << static_cast<short>(values[i]);
    setProperty("meters", words);
    update();
}

void StandInEditor::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), QColor(0x2a, 0x2e, 0x34));
    const double step = width() / double(parameterCount);
    for (const EqualizerParameter& parameter : equalizerParameters) {
        const double full = height() * double(positionOf(parameter));
        painter.fillRect(QRectF((parameter.number - 1) * step + 1, height() - full, step - 2, full),
                         QColor(0x03, 0x94, 0xD0));
    }
    const QVariantList meters = property("meters").toList();
    if (!meters.isEmpty())
        painter.fillRect(
            QRectF(0, 0, width() * (meters[meters.size() / 2 + 2 * m_channel].toInt() / 1270.0 + 1),
                   1),
            Qt::white);
}

void StandInEditor::log(const QString& call)
{
    setProperty("calls", property("calls").toStringList() << call);
}

void StandInEditor::bind(bool on)
{
    if (!m_memory || m_channel < 0)
        return;
    const auto channel = static_cast<unsigned short>(m_channel);
    for (const EqualizerParameter& parameter : equalizerParameters) {
        if (on)
            m_memory->registerObserver(idOf(parameter), channel, this);
        else
            m_memory->unregisterObserver(idOf(parameter), channel, this);
    }
}

unsigned short StandInEditor::idOf(const EqualizerParameter& parameter) const
{
    unsigned short index = 0;
    unsigned short id = 0;
    if (m_model && m_model->findParameter(&index, parameter.name))
        m_model->getParameterAddress(&id, nullptr, index);
    return id;
}

float StandInEditor::positionOf(const EqualizerParameter& parameter) const
{
    const auto channel = static_cast<unsigned short>(m_channel);
    int minimum = 0;
    int maximum = 0;
    int value = 0;
    if (!m_memory || m_memory->getRange(idOf(parameter), channel, &minimum, &maximum) < 0 ||
        m_memory->getValue(idOf(parameter), channel, &value, 0) < 0)
        return 0.0F;
    return BandDesign::position(value, minimum, maximum);
}

#include "moc_StandInEditor.cpp"
