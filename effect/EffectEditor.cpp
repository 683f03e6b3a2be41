// SPDX-License-Identifier: GPL-3.0-or-later
#include "effect/EffectEditor.h"

#include "controls/AbstractController.h"
#include "effect/EditModes.h"
#include "effect/EditorFonts.h"
#include "effect/EditorSetup.h"
#include "effect/PixelRounding.h"
#include "effect/WidgetTree.h"
#include "interfaces/IModelInfo.h"

#include <QFont>
#include <QFontDatabase>
#include <QScrollArea>

#include <cmath>
#include <utility>

using CommonController_MemAPI::AbstractController;

namespace {

QRect scaledGeometry(const QRect& geometry, double scale)
{
    return {roundToPixel(geometry.left() * scale), roundToPixel(geometry.top() * scale),
            roundToPixel(geometry.width() * scale), roundToPixel(geometry.height() * scale)};
}

void scaleFont(const EffectEditor::WidgetInformation& information, double scale)
{
    if (information.pointSize <= 0 && information.pixelSize <= 0)
        return;
    QFont font = information.widget->font();
    if (information.pixelSize > 0)
        font.setPixelSize(truncateToFontSize(information.pixelSize * scale));
    else
        font.setPointSize(truncateToFontSize(information.pointSize * scale));
    information.widget->setFont(font);
}

} // namespace

EffectEditor::EffectEditor(QWidget* parent)
    : IVaskEffectEditor2(parent)
    , m_style(nullptr)
{}

void EffectEditor::initialize()
{
    QT_WARNING_PUSH
    QT_WARNING_DISABLE_DEPRECATED
    initializeFontStyle(this, QFontDatabase());
    QT_WARNING_POP
    initializeFontSize(this);
    initializeStyle(this, &m_style);
    initializePalette(this, palette());
    getWidgetInformationList(this, &m_widgetInformation);
}

void EffectEditor::setModelInfo(IModelInfo* modelInfo) { m_modelInfo = modelInfo; }

void EffectEditor::setStereo(bool) {}

void EffectEditor::setFs(int) {}

void EffectEditor::setOn(bool) {}

void EffectEditor::setDialEditMode(int mode) { ::setDialEditMode(this, mode); }

void EffectEditor::setSliderEditMode(int mode) { ::setSliderEditMode(this, mode); }

void EffectEditor::setScale(double scale)
{
    if (!std::isfinite(scale))
        return;
    for (const WidgetInformation& information : std::as_const(m_widgetInformation)) {
        information.widget->setGeometry(scaledGeometry(information.geometry, scale));
        scaleFont(information, scale);
        if (auto* control = dynamic_cast<AbstractController*>(information.widget))
            control->setScale(scale);
    }
    m_scale = scale;
}

QMap<QString, QVariant> EffectEditor::getEditorSettings() const { return {}; }

void EffectEditor::setEditorSettings(const QMap<QString, QVariant>&) {}

double EffectEditor::scale() const { return m_scale; }

bool EffectEditor::getParameter(const char* name, unsigned short* parameter, unsigned short* second)
{
    unsigned short index = 0;
    if (!m_modelInfo || !m_modelInfo->findParameter(&index, name))
        return false;
    unsigned short id = 0;
    unsigned short secondWord = 0;
    if (!m_modelInfo->getParameterAddress(&id, &secondWord, index))
        return false;
    if (parameter)
        *parameter = id;
    if (second)
        *second = secondWord;
    return true;
}

bool EffectEditor::getMeterIndex(const char* name, unsigned short ch, bool second,
                                 unsigned short* index)
{
    unsigned short meter = 0;
    if (!m_modelInfo || !m_modelInfo->findMeter(&meter, name))
        return false;
    unsigned short base = 0;
    unsigned short count = 0;
    if (!m_modelInfo->getMeterRange(&base, &count, meter) || count <= ch)
        return false;
    if (index)
        *index = static_cast<unsigned short>((second ? 1 : 0) + ch * 2 + base);
    return true;
}

void getWidgetInformationList(QWidget* widget, QList<EffectEditor::WidgetInformation>* list)
{
    const QFont& font = widget->font();
    list->append({widget, widget->geometry(), font.pointSize(), font.pixelSize()});
    if (const auto* scrollArea = qobject_cast<QScrollArea*>(widget)) {
        if (QWidget* content = scrollArea->widget())
            getWidgetInformationList(content, list);
        return;
    }
    forEachChildWidget(widget, [=](QWidget* child) { getWidgetInformationList(child, list); });
}

#include "moc_EffectEditor.cpp"
