// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/ZoltaEditor.h"

#include "component/ZoltaComponent.h"
#include "controls/TextEditControllerLineEdit.h"
#include "controls/WheelAccumulator.h"
#include "editor/AccessibleNames.h"
#include "editor/EditorTraversal.h"
#include "editor/FocusMark.h"
#include "editor/ParameterMap.h"
#include "editor/ZoltaAbout.h"
#include "graph/ZoltaEqualizerGraph.h"
#include "interfaces/IMemAPI.h"

#include "ui_ZoltaEditor.h"

#include <QLineEdit>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>

#include <utility>

using CommonController_MemAPI::AbstractController;
using CommonController_MemAPI::TextEditController;
using CommonController_MemAPI::WheelAccumulator;
using CommonController_MemAPI::TextEditControllerPrivate::LineEdit;

namespace {

constexpr QRect EqualizerGraphRect(94, 22, 679, 192);

const QString GraphZoomKey = QStringLiteral("GraphZoom");
// Reserved for the spectrum display, which is not offered: neither written nor read.
[[maybe_unused]] const QString SpectrumKey = QStringLiteral("Spectrum");

bool hasGain(int type) { return (type & ~1) == 2; }

int secondChannel(int ch, int ch2)
{
    return ch2 == ch && ch2 >= 0 ? static_cast<int>(static_cast<unsigned int>(ch) + 1) : ch2;
}

} // namespace

ZoltaEditor::ZoltaEditor(QWidget* parent)
    : EffectEditor(parent)
    , m_ui(new Ui_ZoltaEditor)
    , m_uid(ZoltaComponent::classId())
{
    m_ui->setupUi(this);
    // Otherwise the editor would be filled in the background role of its parent.
    setBackgroundRole(QPalette::Window);
    hideAlternatives();
    m_graph = new ZoltaEqualizerGraph(this);
    m_graph->setGeometry(EqualizerGraphRect);
    m_graph->setGround(m_ui->m_pBackground);
    m_ui->m_pBackground->setHidesGround(true);
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
    // A control that is destroyed while it is dragged emits drag(false).
    const QList<QWidget*> controls = findChildren<QWidget*>();
    for (QWidget* control : controls)
        control->disconnect(this);
    spareNextFocus();
    delete m_graph;
    delete m_ui;
    delete m_component;
}

// Whoever is deleted by the end of a text field's edit may be about to give the focus to the next
// widget, and Qt goes on with that widget then.
void ZoltaEditor::spareNextFocus()
{
    QWidget* next = LineEdit::nextFocus();
    if (!next || !isAncestorOf(next) || qobject_cast<QLineEdit*>(next)) // which spares itself
        return;
    if (auto* control = dynamic_cast<AbstractController*>(next))
        control->setMemAPIValue(nullptr, 0, 0, 0);
    if (next == m_graph)
        std::exchange(m_graph, nullptr)->setMemAPI(nullptr);
    next->setParent(nullptr);
    next->deleteLater();
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

void ZoltaEditor::updateParameters()
{
    const QPointer<ZoltaEditor> self(this);
    for (const ParameterRow& row : ParameterMap) {
        if (self)
            updateRow(row);
    }
    if (self)
        showChannels();
}

void ZoltaEditor::updateRow(const ParameterRow& row)
{
    const QPointer<ZoltaEditor> self(this);
    const auto id = parameterId(row.parameter);
    for (AbstractController* control : row.controls(*m_ui)) {
        if (self)
            updateBinding(*control, id);
    }
    if (self)
        row.area(*m_ui)->setVisible(id.has_value());
    if (!self || row.parameter.field != EqualizerField::Drive)
        return;
    if (const auto value = parameterValue(row.parameter))
        cleanDriveChange(*value != 0);
}

void ZoltaEditor::updateBinding(AbstractController& control, std::optional<unsigned short> id)
{
    if (id)
        control.setMemAPIValue(m_memAPI, *id, static_cast<unsigned short>(m_primaryCh), 0);
    else if (control.memAPI() != m_memAPI)
        control.setMemAPIValue(nullptr, 0, 0, 0);
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

std::optional<unsigned short> ZoltaEditor::parameterId(const EqualizerParameter& parameter)
{
    unsigned short id = 0;
    if (!m_memAPI || !getParameter(parameter.name, &id, nullptr))
        return {};
    return id;
}

std::optional<int> ZoltaEditor::parameterValue(const EqualizerParameter& parameter)
{
    const auto id = parameterId(parameter);
    int value = 0;
    if (!id || m_memAPI->getValue(*id, static_cast<unsigned short>(m_primaryCh), &value, 0) < 0)
        return {};
    return value;
}

void ZoltaEditor::resetParameter(const EqualizerParameter& parameter)
{
    const auto id = parameterId(parameter);
    const unsigned short ch = static_cast<unsigned short>(m_primaryCh);
    int value = 0;
    if (id && m_memAPI->getDefault(*id, ch, &value) >= 0)
        m_memAPI->setValue(*id, ch, value, 0, 0, 1);
}

void ZoltaEditor::switchByWheel(const QWheelEvent& event)
{
    const int delta = WheelAccumulator::delta(event);
    if (delta >= WheelAccumulator::Notch)
        m_ui->m_pDriveCleanSwitch->setOn();
    else if (delta <= -WheelAccumulator::Notch)
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

void ZoltaEditor::retranslate()
{
    // The form sets the pictures of dark LED meters.
    const QString left = m_ui->m_pLedStereoMeterL->svg();
    const QString right = m_ui->m_pLedStereoMeterR->svg();
    m_ui->retranslateUi(this);
    nameControls(*m_ui);
    m_ui->m_pLedMonoMeter->setSvg(left);
    m_ui->m_pLedStereoMeterL->setSvg(left);
    m_ui->m_pLedStereoMeterR->setSvg(right);
}

#include "moc_ZoltaEditor.cpp"
