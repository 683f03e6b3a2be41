// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/hosting/StandInEditor.h"

#include "interfaces/IMemAPI.h"
#include "interfaces/IMeterNotifier.h"

#include <QPainter>
#include <QStringList>

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
    log(memAPI ? QStringLiteral("setMemAPI") : QStringLiteral("setMemAPI null"));
    bind(false);
    IMeterNotifier* meters = nullptr;
    if (m_memory && m_memory->queryMeterNotifier(&meters) >= 0)
        meters->removeMeterObserver(this);
    m_memory = memAPI;
    m_component.setMemory(memAPI);
    if (m_memory && m_memory->queryMeterNotifier(&meters) >= 0)
        meters->addMeterObserver(this);
    bind(true);
}

void StandInEditor::setModelInfo(IModelInfo* modelInfo)
{
    log(QStringLiteral("setModelInfo"));
    m_model = modelInfo;
    m_component.setModel(modelInfo);
}

void StandInEditor::setCh(int ch, int ch2)
{
    log(QStringLiteral("setCh %1 %2").arg(ch).arg(ch2));
    bind(false);
    m_channel = ch;
    m_component.setChannel(ch);
    bind(true);
}

void StandInEditor::setStereo(bool stereo) { log(QStringLiteral("setStereo %1").arg(stereo)); }

void StandInEditor::setFs(int fs) { log(QStringLiteral("setFs %1").arg(fs)); }

void StandInEditor::setOn(bool on) { log(QStringLiteral("setOn %1").arg(on)); }

void StandInEditor::setDialEditMode(int mode)
{
    log(QStringLiteral("setDialEditMode %1").arg(mode));
}

void StandInEditor::setSliderEditMode(int mode)
{
    log(QStringLiteral("setSliderEditMode %1").arg(mode));
}

void StandInEditor::setScale(double scale)
{
    log(QStringLiteral("setScale %1").arg(scale));
    m_scale = scale;
    resize(static_cast<int>(designWidth * scale + 0.5),
           static_cast<int>(designHeight * scale + 0.5));
}

void StandInEditor::setEditorSettings(const QMap<QString, QVariant>& settings)
{
    log(QStringLiteral("setEditorSettings"));
    setProperty("settings", settings);
}

int StandInEditor::Update(unsigned short parameter, unsigned short ch, int value, const char* text)
{
    log(QStringLiteral("Update %1 %2 %3 %4")
            .arg(parameter)
            .arg(ch)
            .arg(value)
            .arg(QString::fromUtf8(text)));
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
    const double step = width() / 27.0;
    for (int number = 1; number <= 27; ++number) {
        const double full = height() * double(m_component.position(number));
        painter.fillRect(QRectF((number - 1) * step + 1, height() - full, step - 2, full),
                         QColor(0x03, 0x94, 0xD0));
    }
    const QVariantList meters = property("meters").toList();
    if (!meters.isEmpty())
        painter.fillRect(
            QRectF(0, 0, width() * (meters[16 + 2 * m_channel].toInt() / 1270.0 + 1), 1),
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
    for (int number = 1; number <= 27; ++number) {
        const unsigned short id = m_component.parameterId(number);
        if (on)
            m_memory->registerObserver(id, channel, this);
        else
            m_memory->unregisterObserver(id, channel, this);
    }
}

#include "moc_StandInEditor.cpp"
