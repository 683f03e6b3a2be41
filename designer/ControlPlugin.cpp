// SPDX-License-Identifier: GPL-3.0-or-later
#include "designer/ControlPlugin.h"

#include <QIcon>
#include <QMetaProperty>
#include <QWidget>
#include <QXmlStreamWriter>

namespace {

QString text(const char* characters) { return QString::fromUtf8(characters); }

void writeGeometry(QXmlStreamWriter& xml, QSize size)
{
    xml.writeStartElement(QStringLiteral("property"));
    xml.writeAttribute(QStringLiteral("name"), QStringLiteral("geometry"));
    xml.writeStartElement(QStringLiteral("rect"));
    for (const char* place : {"x", "y"})
        xml.writeTextElement(text(place), QStringLiteral("0"));
    xml.writeTextElement(QStringLiteral("width"), QString::number(size.width()));
    xml.writeTextElement(QStringLiteral("height"), QString::number(size.height()));
    xml.writeEndElement();
    xml.writeEndElement();
}

void writeTextProperties(QXmlStreamWriter& xml, const QMetaObject& type)
{
    xml.writeStartElement(QStringLiteral("propertyspecifications"));
    for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
        if (type.property(i).metaType() != QMetaType::fromType<QString>())
            continue;
        xml.writeEmptyElement(QStringLiteral("stringpropertyspecification"));
        xml.writeAttribute(QStringLiteral("name"), text(type.property(i).name()));
        xml.writeAttribute(QStringLiteral("type"), QStringLiteral("singleline"));
    }
    xml.writeEndElement();
}

} // namespace

ControlPlugin::ControlPlugin(const ControlEntry& entry, QObject* parent)
    : QObject(parent)
    , m_entry(entry)
{}

QString ControlPlugin::name() const { return text(m_entry.type->className()); }

QString ControlPlugin::group() const { return QStringLiteral("Zolta"); }

QString ControlPlugin::toolTip() const { return text(m_entry.toolTip); }

QString ControlPlugin::whatsThis() const { return toolTip(); }

QString ControlPlugin::includeFile() const { return text(m_entry.header); }

QIcon ControlPlugin::icon() const
{
    return QIcon(QStringLiteral(":/zolta/designer/icons/%1.svg").arg(text(m_entry.icon)));
}

bool ControlPlugin::isContainer() const { return m_entry.isContainer; }

QWidget* ControlPlugin::createWidget(QWidget* parent) { return m_entry.make(parent); }

void ControlPlugin::initialize(QDesignerFormEditorInterface*) { m_initialized = true; }

QString ControlPlugin::domXml() const
{
    QString result;
    QXmlStreamWriter xml(&result);
    xml.writeStartElement(QStringLiteral("ui"));
    xml.writeAttribute(QStringLiteral("displayname"), text(m_entry.title));
    xml.writeStartElement(QStringLiteral("widget"));
    xml.writeAttribute(QStringLiteral("class"), name());
    xml.writeAttribute(QStringLiteral("name"), text(m_entry.objectName));
    writeGeometry(xml, m_entry.size);
    xml.writeEndElement();
    xml.writeStartElement(QStringLiteral("customwidgets"));
    xml.writeStartElement(QStringLiteral("customwidget"));
    xml.writeTextElement(QStringLiteral("class"), name());
    xml.writeTextElement(QStringLiteral("extends"), text(m_entry.type->superClass()->className()));
    writeTextProperties(xml, *m_entry.type);
    xml.writeEndDocument();
    return result;
}

#include "moc_ControlPlugin.cpp"
