// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/ZoltaEditor.h"

#include "component/ZoltaComponent.h"
#include "editor/AccessibleNames.h"
#include "editor/EditorTraversal.h"
#include "editor/FocusMark.h"
#include "editor/LedMeterSvgTable.h"
#include "editor/ParameterMap.h"
#include "editor/ZoltaAbout.h"
#include "graph/ZoltaEqualizerGraph.h"
#include "interfaces/IMemAPI.h"
#include "interfaces/IMeterNotifier.h"

#include "ui_ZoltaEditor.h"

#include <QMouseEvent>
#include <QTimerEvent>
#include <QWheelEvent>

#include <cstdint>
#include <cstdlib>

using CommonController_MemAPI::AbstractController;
using CommonController_MemAPI::TextEditController;

namespace {

constexpr QRect EqualizerGraphRect(94, 22, 679, 192);
constexpr int FlatHoldMilliseconds = 1000;
constexpr int WheelNotch = 120;

constexpr int LowType = 1;
constexpr int LowOn = 4;
constexpr int HighType = 21;
constexpr int HighOn = 24;
constexpr std::array Gains = {3, 7, 11, 15, 19, 23};
constexpr std::array AllButDrive = {25, 26, 4, 8,  12, 16, 20, 24, 3, 7, 11, 15, 19,
                                    23, 2,  6, 10, 14, 18, 22, 1,  5, 9, 13, 17, 21};

const QString GraphZoomKey = QStringLiteral("GraphZoom");
// Reserved for the spectrum display, which is not offered: neither written nor read.
[[maybe_unused]] const QString SpectrumKey = QStringLiteral("Spectrum");

bool hasGain(int type) { return (type & ~1) == 2; }

unsigned short channelWord(int ch) { return static_cast<unsigned short>(ch); }

int secondChannel(int ch, int ch2)
{
    return ch2 == ch && ch2 >= 0 ? static_cast<int>(static_cast<unsigned int>(ch) + 1) : ch2;
}

int wheelDelta(const QWheelEvent& event)
{
    const QPoint angle = event.angleDelta();
    const int delta = std::abs(angle.x()) > std::abs(angle.y()) ? angle.x() : angle.y();
    return event.inverted() ? -delta : delta;
}

} // namespace

ZoltaEditor::ZoltaEditor(QWidget* parent)
    : EffectEditor(parent)
    , m_ui(new Ui_ZoltaEditor)
    , m_uid(ZoltaComponent::classId())
{
    m_ui->setupUi(this);
    // Without a role of its own the editor would take over its parent's.
    setBackgroundRole(QPalette::Window);
    hideAlternatives();
    m_graph = new ZoltaEqualizerGraph(this);
    m_graph->setGeometry(EqualizerGraphRect);
    m_about = new ZoltaAbout(this);
    m_about->setGeometry(rect());
    m_component = new ZoltaComponent;
    m_traversal = std::make_unique<EditorTraversal>(*m_ui, *m_graph, *new FocusMark(this));
    connectControls();
    watchControls();
    nameControls(*m_ui);
}

ZoltaEditor::~ZoltaEditor()
{
    setMeterObserver(false);
    // A control that is destroyed while it is dragged says so, when nobody is left to listen.
    const QList<QWidget*> controls = findChildren<QWidget*>();
    for (QWidget* control : controls)
        control->disconnect(this);
    delete m_graph;
    delete m_ui;
    delete m_component;
}

Steinberg::FUID& ZoltaEditor::uid() { return m_uid; }

void ZoltaEditor::loadUids(std::vector<Steinberg::FUID>& uids) { uids.push_back(m_uid); }

Steinberg::Vst::IComponent* ZoltaEditor::getVstComponent() const { return m_component; }

void ZoltaEditor::setModelInfo(IModelInfo* modelInfo)
{
    EffectEditor::setModelInfo(modelInfo);
    m_component->setModelInfo(modelInfo);
}

void ZoltaEditor::setMemAPI(IMemAPI* memAPI)
{
    if (memAPI == m_memAPI)
        return;
    setMeterObserver(false);
    m_memAPI = memAPI;
    if (memAPI) {
        m_component->setMemAPI(memAPI);
        setMeterObserver(true);
    }
    m_graph->setMemAPI(memAPI);
    updateParameters();
}

void ZoltaEditor::setCh(int ch, int ch2)
{
    const int second = secondChannel(ch, ch2);
    if (ch == m_primaryCh && second == m_secondaryCh)
        return;
    m_primaryCh = ch;
    m_secondaryCh = second;
    m_component->setCh(ch);
    m_graph->setCh(ch);
    updateParameters();
}

void ZoltaEditor::setFs(int fs) { m_graph->setFs(fs); }

QMap<QString, QVariant> ZoltaEditor::getEditorSettings() const
{
    return {{GraphZoomKey, m_graph->zoom()}};
}

void ZoltaEditor::setEditorSettings(const QMap<QString, QVariant>& settings)
{
    const QVariant zoom = settings.value(GraphZoomKey);
    if (!zoom.isNull())
        m_graph->setZoom(zoom.toInt());
}

int ZoltaEditor::Update(unsigned short, unsigned short, int, const char*) { return 0; }

int ZoltaEditor::UpdateProperty(unsigned short, unsigned short, int, int, int, bool, const char*)
{
    return 0;
}

void ZoltaEditor::notifyMeterLvlUpdated(unsigned int*, unsigned int) {}

void ZoltaEditor::notifyMeterDbUpdated(unsigned int* values, unsigned int count)
{
    if (const auto level = meterValue("meter_oxa_snd", m_primaryCh, values, count)) {
        m_ui->m_pInputMonoMeter->setValue(*level);
        m_ui->m_pInputStereoMeterL->setValue(*level);
    }
    if (const auto level = meterValue("meter_oxa_snd", m_secondaryCh, values, count))
        m_ui->m_pInputStereoMeterR->setValue(*level);
    if (const auto level = meterValue("meter_oxa_rtn", m_primaryCh, values, count)) {
        setLedMeterL(*level);
        m_ui->m_pOutputMonoMeter->setValue(*level);
        m_ui->m_pOutputStereoMeterL->setValue(*level);
    }
    if (const auto level = meterValue("meter_oxa_rtn", m_secondaryCh, values, count)) {
        setLedMeterR(*level);
        m_ui->m_pOutputStereoMeterR->setValue(*level);
    }
}

void ZoltaEditor::setLedMeterL(int value)
{
    const QString svg = ledMeterSvg(value);
    if (svg.isEmpty())
        return;
    m_ui->m_pLedMonoMeter->setSvg(svg);
    m_ui->m_pLedStereoMeterL->setSvg(svg);
}

void ZoltaEditor::setLedMeterR(int value)
{
    const QString svg = ledMeterSvg(value);
    if (!svg.isEmpty())
        m_ui->m_pLedStereoMeterR->setSvg(svg);
}

void ZoltaEditor::cleanDriveChange(bool drive)
{
    m_ui->m_pDriveOffLed->setVisible(!drive);
    m_ui->m_pDriveOnLed->setVisible(drive);
    m_ui->m_pCleanOffLed->setVisible(drive);
    m_ui->m_pCleanOnLed->setVisible(!drive);
}

void ZoltaEditor::lowTypeChange(int type)
{
    m_ui->m_pLowGainKnob->setVisible(hasGain(type));
    m_ui->m_pLowGainKnobDisable->setVisible(!hasGain(type));
    m_ui->m_pLowGainTextEdit->setVisible(hasGain(type));
}

void ZoltaEditor::highTypeChange(int type)
{
    m_ui->m_pHighGainKnob->setVisible(hasGain(type));
    m_ui->m_pHighGainKnobDisable->setVisible(!hasGain(type));
    m_ui->m_pHighGainTextEdit->setVisible(hasGain(type));
}

void ZoltaEditor::beginFlat()
{
    for (const int gain : Gains)
        resetParameter(gain);
    if (parameterValue(LowOn).value_or(0) != 0)
        resetParameter(LowType);
    if (parameterValue(HighOn).value_or(0) != 0)
        resetParameter(HighType);
    endFlat();
    m_flatTimerId = startTimer(FlatHoldMilliseconds, Qt::CoarseTimer);
}

void ZoltaEditor::endFlat()
{
    if (m_flatTimerId == 0)
        return;
    killTimer(m_flatTimerId);
    m_flatTimerId = 0;
}

bool ZoltaEditor::focusNextPrevChild(bool next)
{
    return m_traversal->move(next) || EffectEditor::focusNextPrevChild(next);
}

void ZoltaEditor::keyPressEvent(QKeyEvent* event)
{
    auto* text = qobject_cast<TextEditController*>(focusWidget());
    const int key = event->key();
    if (text && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2))
        text->edit();
    else if (m_about->isVisible() && key == Qt::Key_Escape)
        m_about->close();
    else
        EffectEditor::keyPressEvent(event);
}

bool ZoltaEditor::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Wheel && watched == m_ui->m_pDriveCleanSwitch) {
        switchByWheel(*static_cast<QWheelEvent*>(event));
        event->accept();
        return true;
    }
    if (event->type() == QEvent::MouseButtonDblClick) {
        const auto modifiers = static_cast<QMouseEvent*>(event)->modifiers();
        if (!modifiers.testFlag(Qt::ControlModifier) && openTextEntry(watched))
            return true;
    }
    return EffectEditor::eventFilter(watched, event);
}

void ZoltaEditor::timerEvent(QTimerEvent* event)
{
    if (m_flatTimerId == 0 || event->timerId() != m_flatTimerId) {
        EffectEditor::timerEvent(event);
        return;
    }
    endFlat();
    for (const int number : AllButDrive)
        resetParameter(number);
}

void ZoltaEditor::changeEvent(QEvent* event)
{
    EffectEditor::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void ZoltaEditor::hideAlternatives()
{
    m_ui->m_pEqualizerSpectrumButton->hide();
    m_ui->m_pDriveOffLed->hide();
    m_ui->m_pCleanOnLed->hide();
    m_ui->m_pLowGainKnobDisable->hide();
    m_ui->m_pHighGainKnobDisable->hide();
    m_ui->m_pLedMonoMeterArea->hide();
    m_ui->m_pInputMonoMeterBackground->hide();
    m_ui->m_pOutputMonoMeterBackground->hide();
}

void ZoltaEditor::connectControls()
{
    connect(m_ui->m_pAboutButton, SIGNAL(clicked()), m_about, SLOT(open()));
    connect(m_ui->m_pZoomPlusButton, SIGNAL(clicked()), m_graph, SLOT(zoomUp()));
    connect(m_ui->m_pZoomMinusButton, SIGNAL(clicked()), m_graph, SLOT(zoomDown()));
    connect(m_ui->m_pDriveCleanSwitch, SIGNAL(toggled(bool)), this, SLOT(cleanDriveChange(bool)));
    connect(m_ui->m_pLowTypeKnob, SIGNAL(valueChanged(int)), this, SLOT(lowTypeChange(int)));
    connect(m_ui->m_pHighTypeKnob, SIGNAL(valueChanged(int)), this, SLOT(highTypeChange(int)));
    connect(m_ui->m_pFlatButton, SIGNAL(pressed()), this, SLOT(beginFlat()));
    connect(m_ui->m_pFlatButton, SIGNAL(released()), this, SLOT(endFlat()));
    for (const ParameterRow& row : ParameterMap) {
        if (row.knobDrag)
            connectDrag(m_ui->*row.knob, row.knobDrag);
        if (row.textDrag)
            connectDrag(m_ui->*row.text, row.textDrag);
    }
}

void ZoltaEditor::connectDrag(QWidget* control, const char* slot)
{
    connect(control, SIGNAL(drag(bool)), this, QByteArray::number(QSLOT_CODE) + slot);
}

void ZoltaEditor::watchControls()
{
    for (const ParameterRow& row : ParameterMap) {
        if (row.knob && row.text)
            (m_ui->*row.knob)->installEventFilter(this);
    }
    m_ui->m_pDriveCleanSwitch->installEventFilter(this);
}

void ZoltaEditor::setMeterObserver(bool registered)
{
    IMeterNotifier* notifier = nullptr;
    if (!m_memAPI || m_memAPI->queryMeterNotifier(&notifier) < 0 || !notifier)
        notifier = registered ? nullptr : m_meterNotifier;
    m_meterNotifier = registered ? notifier : nullptr;
    if (!notifier)
        return;
    if (registered)
        notifier->addMeterObserver(this);
    else
        notifier->removeMeterObserver(this);
}

void ZoltaEditor::updateParameters()
{
    for (const ParameterRow& row : ParameterMap)
        updateRow(row);
    showChannels();
}

void ZoltaEditor::updateRow(const ParameterRow& row)
{
    const auto id = parameterId(row.number);
    for (AbstractController* control : row.controls(*m_ui)) {
        if (id)
            control->setMemAPIValue(m_memAPI, *id, channelWord(m_primaryCh), 0);
        else if (control->memAPI() != m_memAPI)
            control->setMemAPIValue(nullptr, 0, 0, 0);
    }
    row.area(*m_ui)->setVisible(id.has_value());
    if (row.number != DriveParameter)
        return;
    if (const auto value = parameterValue(DriveParameter))
        cleanDriveChange(*value != 0);
}

void ZoltaEditor::showChannels()
{
    const bool stereo = m_memAPI && m_secondaryCh >= 0;
    const bool mono = m_memAPI && m_secondaryCh < 0;
    m_ui->m_pLedStereoMeterArea->setVisible(stereo);
    m_ui->m_pInputStereoMeterBackground->setVisible(stereo);
    m_ui->m_pOutputStereoMeterBackground->setVisible(stereo);
    m_ui->m_pLedMonoMeterArea->setVisible(mono);
    m_ui->m_pInputMonoMeterBackground->setVisible(mono);
    m_ui->m_pOutputMonoMeterBackground->setVisible(mono);
}

std::optional<unsigned short> ZoltaEditor::parameterId(int number)
{
    unsigned short id = 0;
    if (!m_memAPI || !getParameter(parameterName(number), &id, nullptr))
        return {};
    return id;
}

std::optional<int> ZoltaEditor::parameterValue(int number)
{
    const auto id = parameterId(number);
    int value = 0;
    if (!id || m_memAPI->getValue(*id, channelWord(m_primaryCh), &value, 0) < 0)
        return {};
    return value;
}

void ZoltaEditor::resetParameter(int number)
{
    const auto id = parameterId(number);
    const unsigned short ch = channelWord(m_primaryCh);
    int value = 0;
    if (id && m_memAPI->getDefault(*id, ch, &value) >= 0)
        m_memAPI->setValue(*id, ch, value, 0, 0, 1);
}

void ZoltaEditor::switchByWheel(const QWheelEvent& event)
{
    const int delta = wheelDelta(event);
    if (delta >= WheelNotch)
        m_ui->m_pDriveCleanSwitch->setOn();
    else if (delta <= -WheelNotch)
        m_ui->m_pDriveCleanSwitch->setOff();
}

bool ZoltaEditor::openTextEntry(const QObject* knob)
{
    for (const ParameterRow& row : ParameterMap) {
        if (row.knob && row.text && m_ui->*row.knob == knob) {
            (m_ui->*row.text)->edit();
            return true;
        }
    }
    return false;
}

std::optional<int> ZoltaEditor::meterValue(const char* name, int ch, const unsigned int* values,
                                           unsigned int count)
{
    unsigned short index = 0;
    if (!values || ch < 0 || !getMeterIndex(name, channelWord(ch), false, &index) || index >= count)
        return {};
    return static_cast<std::int16_t>(values[index]);
}

void ZoltaEditor::retranslate()
{
    // The form's pictures include those of dark LED meters.
    const QString left = m_ui->m_pLedStereoMeterL->svg();
    const QString right = m_ui->m_pLedStereoMeterR->svg();
    m_ui->retranslateUi(this);
    nameControls(*m_ui);
    m_ui->m_pLedMonoMeter->setSvg(left);
    m_ui->m_pLedStereoMeterL->setSvg(left);
    m_ui->m_pLedStereoMeterR->setSvg(right);
}

#include "moc_ZoltaEditor.cpp"
