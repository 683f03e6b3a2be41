// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/RoundMeterController.h"
#include "editor/ZoltaAbout.h"
#include "tests/editor/EditorFixture.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QMetaProperty>
#include <QSet>
#include <QTranslator>

using CommonController_MemAPI::RoundMeterController;

/// The widget tree as the editor's constructor leaves it, against the table in layout.tsv.
class tst_ZoltaForm : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theEditorItself();
    void everyWidgetIsAsInTheTable_data();
    void everyWidgetIsAsInTheTable();
    void nothingElseIsInTheTree();
    void widgetsAreCreatedInTheOrderOfTheTable();
    void graphAndPanelLieOnTop();
    void everyTextAndPictureAsksTheTranslation();
    void aLiveEditorIsTranslated();

private:
    QList<QStringList> m_rows;
};

namespace {

enum Column { Name, Class, Parent, X, Y, Width, Height, Points, Settings };

QWidget* findIn(const ZoltaEditor& editor, const QString& name)
{
    return editor.objectName() == name ? const_cast<ZoltaEditor*>(&editor)
                                       : editor.findChild<QWidget*>(name);
}

QByteArray className(const QString& shortName)
{
    const QMap<QString, QByteArray> library = {
        {QStringLiteral("Knob"), "CommonController_MemAPI::KnobController"},
        {QStringLiteral("TextEdit"), "CommonController_MemAPI::TextEditController"},
        {QStringLiteral("Button"), "CommonController_MemAPI::PushButtonController"},
        {QStringLiteral("Meter"), "CommonController_MemAPI::RoundMeterController"},
    };
    return library.value(shortName, shortName.toLatin1());
}

QString picture(const QString& path)
{
    if (path.isEmpty())
        return QStringLiteral("-");
    const QString folder = QStringLiteral(":/image/zolta/");
    const QString suffix = QStringLiteral(".svg");
    if (!path.startsWith(folder) || !path.endsWith(suffix))
        return path;
    return path.mid(folder.size(), path.size() - folder.size() - suffix.size());
}

QString number(double value) { return QString::number(value); }

QString colour(const QWidget& widget)
{
    const QPalette& palette = widget.palette();
    const QColor active = palette.color(QPalette::Active, QPalette::WindowText);
    for (const auto group : {QPalette::Inactive, QPalette::Disabled}) {
        if (palette.color(group, QPalette::WindowText) != active)
            return QStringLiteral("uneven");
    }
    return active.name();
}

QString alignment(const QLabel& label)
{
    const Qt::Alignment vertical = label.alignment() & Qt::AlignVertical_Mask;
    const Qt::Alignment horizontal = label.alignment() & Qt::AlignHorizontal_Mask;
    if (vertical != Qt::AlignVCenter)
        return QStringLiteral("not centred vertically");
    return horizontal == Qt::AlignHCenter ? QStringLiteral("centre")
           : horizontal == Qt::AlignRight ? QStringLiteral("right")
                                          : QStringLiteral("left");
}

/// What the last column of the table says, read from the widget.
QString settingsOf(QWidget* widget)
{
    QStringList list;
    if (const auto* label = qobject_cast<SvgLabel*>(widget))
        list = {picture(label->svg())};
    else if (const auto* text = qobject_cast<QLabel*>(widget))
        list = {text->text(), alignment(*text), colour(*text)};
    else if (const auto* knob = qobject_cast<KnobController*>(widget))
        list = {picture(knob->knobSvg()), picture(knob->backgroundSvg()),
                number(knob->startAngle()), number(knob->spanAngle())};
    else if (const auto* edit = qobject_cast<TextEditController*>(widget))
        list = {edit->postfix().isEmpty() ? QStringLiteral("-") : edit->postfix()};
    else if (const auto* button = qobject_cast<PushButtonController*>(widget))
        list = {button->isCheckable() ? QStringLiteral("check") : QStringLiteral("push"),
                QString::number(button->checkTrigger()),
                picture(button->buttonSvg()),
                picture(button->pushButtonSvg()),
                picture(button->onButtonSvg()),
                picture(button->onPushButtonSvg())};
    else
        list = {QStringLiteral("-")};
    return list.join(QLatin1Char(' '));
}

/// A new widget of the same class as the one given, with what all of its class have in common.
std::unique_ptr<QWidget> plainLike(const QWidget* widget)
{
    if (qobject_cast<const KnobController*>(widget)) {
        auto knob = std::make_unique<KnobController>();
        knob->setKnobType(KnobController::RotateKnob);
        return knob;
    }
    if (qobject_cast<const TextEditController*>(widget)) {
        auto edit = std::make_unique<TextEditController>();
        edit->setAlignment(Qt::AlignCenter);
        edit->setTextTrim(true);
        return edit;
    }
    if (qobject_cast<const PushButtonController*>(widget))
        return std::make_unique<PushButtonController>();
    if (qobject_cast<const RoundMeterController*>(widget))
        return std::make_unique<RoundMeterController>();
    if (qobject_cast<const SvgLabel*>(widget))
        return std::make_unique<SvgLabel>();
    if (qobject_cast<const QLabel*>(widget))
        return std::make_unique<QLabel>();
    return std::make_unique<QWidget>();
}

/// The properties beyond those of a widget that differ from a plain one's.
QStringList specialProperties(const QWidget* widget)
{
    static const QSet<QByteArray> inTheTable = {
        "svg",        "text",          "alignment",   "knobSvg",        "backgroundSvg",
        "startAngle", "spanAngle",     "postfix",     "checkable",      "checkTrigger",
        "buttonSvg",  "pushButtonSvg", "onButtonSvg", "onPushButtonSvg"};
    // Pictures of other kinds, which no widget here has, cannot be compared.
    static const QSet<QByteArray> incomparable = {"pixmap", "icon", "picture", "movie"};
    const std::unique_ptr<QWidget> plain = plainLike(widget);
    plain->resize(widget->size());
    QStringList special;
    const QMetaObject* type = widget->metaObject();
    const bool isEdit = qobject_cast<const TextEditController*>(widget);
    for (int i = QWidget::staticMetaObject.propertyCount(); i < type->propertyCount(); ++i) {
        const QMetaProperty property = type->property(i);
        if (incomparable.contains(property.name()) ||
            property.read(widget) == property.read(plain.get()))
            continue;
        if (isEdit ? qstrcmp(property.name(), "postfix") != 0
                   : !inTheTable.contains(property.name()))
            special.append(QString::fromLatin1(property.name()));
    }
    return special;
}

struct RoleColour
{
    QPalette::ColorRole role;
    QColor colour;
    QColor disabled;
};

bool has(const QWidget* widget, const QList<RoleColour>& colours)
{
    const QPalette& palette = widget->palette();
    return std::all_of(colours.begin(), colours.end(), [&](const RoleColour& expected) {
        return palette.color(QPalette::Active, expected.role) == expected.colour &&
               palette.color(QPalette::Inactive, expected.role) == expected.colour &&
               palette.color(QPalette::Disabled, expected.role) == expected.disabled;
    });
}

const QList<RoleColour> TextEditColours = {
    {QPalette::WindowText, QColor(255, 255, 255), QColor(255, 255, 255)},
    {QPalette::Text, QColor(255, 255, 255), QColor(255, 255, 255)},
    {QPalette::Highlight, QColor(0x03, 0x94, 0xD0), QColor(0x03, 0x94, 0xD0, 96)},
    {QPalette::HighlightedText, QColor(255, 255, 255), QColor(255, 255, 255)},
    {QPalette::PlaceholderText, QColor(255, 255, 255, 128), QColor(255, 255, 255, 128)},
};
const QList<RoleColour> MeterColours = {
    {QPalette::WindowText, QColor(0x33, 0x33, 0x33), QColor(0x33, 0x33, 0x33)},
    {QPalette::Light, QColor(0xFC, 0x67, 0x69), QColor(0xFC, 0x67, 0x69)},
    {QPalette::Dark, QColor(0x39, 0xCA, 0x74), QColor(0x39, 0xCA, 0x74)},
    {QPalette::Mid, QColor(0xF9, 0xE2, 0x43), QColor(0xF9, 0xE2, 0x43)},
};

/// Writes down the children that the editor gets, in time.
class Births : public QObject
{
public:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::ChildAdded)
            children.append(static_cast<QChildEvent*>(event)->child());
        return false;
    }
    QObjectList children;
};

/// Puts all texts of one context in brackets, and leaves pictures alone.
class Brackets : public QTranslator
{
public:
    QString translate(const char* context, const char* text, const char*, int) const override
    {
        if (QLatin1String(context) != QLatin1String("ZoltaEditor"))
            return {};
        const QString source = QString::fromUtf8(text);
        asked.insert(source);
        return source.startsWith(QLatin1Char(':')) ? QString() : QStringLiteral("[%1]").arg(source);
    }
    bool isEmpty() const override { return false; }

    mutable QSet<QString> asked;
};

} // namespace

void tst_ZoltaForm::initTestCase()
{
    QFile file(QStringLiteral(ZOLTA_LAYOUT_FILE));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    for (const QString& line : lines) {
        if (!line.isEmpty() && !line.startsWith(QLatin1Char('#')))
            m_rows.append(line.split(QLatin1Char('\t')));
    }
    QCOMPARE(m_rows.size(), 139);
}

void tst_ZoltaForm::theEditorItself()
{
    const ZoltaEditor editor;
    QCOMPARE(editor.objectName(), QStringLiteral("ZoltaEditor"));
    QCOMPARE(editor.size(), QSize(977, 559));
    QVERIFY(has(&editor, {{QPalette::Window, Qt::black, Qt::black}}));
    QCOMPARE(editor.font().family(), QStringLiteral("M+ 1c medium"));
    QCOMPARE(editor.font().pointSize(), QApplication::font().pointSize());
    QCOMPARE(editor.focusPolicy(), Qt::ClickFocus);
    QVERIFY(editor.autoFillBackground());
}

void tst_ZoltaForm::everyWidgetIsAsInTheTable_data()
{
    QTest::addColumn<QStringList>("row");
    for (const QStringList& row : std::as_const(m_rows))
        QTest::newRow(qPrintable(row[Name])) << row;
}

void tst_ZoltaForm::everyWidgetIsAsInTheTable()
{
    static const ZoltaEditor editor;
    QFETCH(QStringList, row);
    QWidget* widget = findIn(editor, row[Name]);
    QVERIFY(widget);
    QCOMPARE(QByteArray(widget->metaObject()->className()), className(row[Class]));
    QCOMPARE(widget->parentWidget()->objectName(), row[Parent]);
    QCOMPARE(widget->geometry(),
             QRect(row[X].toInt(), row[Y].toInt(), row[Width].toInt(), row[Height].toInt()));
    QCOMPARE(widget->font().families(), QStringList{QStringLiteral("M+ 1c medium")});
    const int points = row[Points].toInt();
    QCOMPARE(widget->font().pointSize(), points ? points : editor.font().pointSize());
    QCOMPARE(specialProperties(widget).join(QLatin1Char(' ')), QString());
    // The colours come down from parents, and stay when the editor is set up for its host.
    static const EditorFixture fixture;
    for (QWidget* shown : {widget, fixture.find(row[Name])}) {
        QCOMPARE(settingsOf(shown), row[Settings]);
        if (row[Class] == QLatin1String("TextEdit"))
            QVERIFY(has(shown, TextEditColours));
        if (row[Class] == QLatin1String("Meter"))
            QVERIFY(has(shown, MeterColours));
    }
}

void tst_ZoltaForm::nothingElseIsInTheTree()
{
    const ZoltaEditor editor;
    QStringList names;
    const auto widgets =
        editor.findChild<QWidget*>(QStringLiteral("m_pBackground"))->findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        // A text field's inline editor has no name.
        if (!widget->objectName().isEmpty())
            names.append(widget->objectName());
    }
    QCOMPARE(names.size(), m_rows.size() - 1);
    QCOMPARE(QSet<QString>(names.begin(), names.end()).size(), names.size());
}

void tst_ZoltaForm::widgetsAreCreatedInTheOrderOfTheTable()
{
    Births births;
    qApp->installEventFilter(&births);
    const ZoltaEditor editor;
    qApp->removeEventFilter(&births);

    QStringList born;
    for (const QObject* child : std::as_const(births.children)) {
        if (child->objectName().startsWith(QLatin1String("m_p")))
            born.append(child->objectName());
    }
    QStringList expected;
    for (const QStringList& row : std::as_const(m_rows))
        expected.append(row[Name]);
    QCOMPARE(born.mid(0, expected.size()), expected);
}

void tst_ZoltaForm::graphAndPanelLieOnTop()
{
    const ZoltaEditor editor;
    const QObjectList& children = editor.children();
    QCOMPARE(children[0]->objectName(), QStringLiteral("m_pBackground"));
    QCOMPARE(children[1], editor.findChild<ZoltaEqualizerGraph*>());
    QCOMPARE(children[2], editor.findChild<ZoltaAbout*>());
    QCOMPARE(editor.findChild<ZoltaEqualizerGraph*>()->geometry(), QRect(94, 22, 679, 192));
}

void tst_ZoltaForm::everyTextAndPictureAsksTheTranslation()
{
    Brackets translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    const ZoltaEditor editor;
    QSet<QString> expected;
    for (const QStringList& row : std::as_const(m_rows)) {
        const QStringList settings = row[Settings].split(QLatin1Char(' '));
        if (row[Class] == QLatin1String("QLabel") || row[Class] == QLatin1String("TextEdit"))
            expected.insert(settings.first());
        else if (row[Class] != QLatin1String("Meter"))
            for (const QString& name : settings) {
                if (name.contains(QLatin1Char('_')))
                    expected.insert(QStringLiteral(":/image/zolta/%1.svg").arg(name));
            }
    }
    expected.remove(QStringLiteral("-"));
    // What is left over are the names for assistive technology.
    QCOMPARE(translator.asked & expected, expected);
}

void tst_ZoltaForm::aLiveEditorIsTranslated()
{
    const EditorFixture fixture;
    Brackets translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    QEvent languageChange(QEvent::LanguageChange);
    QCoreApplication::sendEvent(fixture.editor.get(), &languageChange);
    for (const QStringList& row : std::as_const(m_rows)) {
        QWidget* widget = findIn(*fixture.editor, row[Name]);
        const QString first = row[Settings].section(QLatin1Char(' '), 0, 0);
        const QString bracketed = QStringLiteral("[%1]").arg(first);
        if (row[Class] == QLatin1String("QLabel"))
            QCOMPARE(qobject_cast<QLabel*>(widget)->text(), bracketed);
        else if (row[Class] == QLatin1String("TextEdit") && first != QLatin1String("-"))
            QCOMPARE(qobject_cast<TextEditController*>(widget)->postfix(), bracketed);
        else
            QCOMPARE(settingsOf(widget), row[Settings]);
    }
}

ZOLTA_TEST_MAIN(tst_ZoltaForm)
#include "tst_ZoltaForm.moc"
