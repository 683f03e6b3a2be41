// SPDX-License-Identifier: GPL-3.0-or-later
#include "daw/window/EmbeddedEditor.h"
#include "parameters/ChannelValues.h"
#include "parameters/ParameterTable.h"
#include "tests/daw/HostWindow.h"
#include "tests/support/TestObject.h"

#include <QDir>
#include <QProcess>
#include <QSet>
#include <QTimer>

#include <csignal>

namespace {

/// What a workstation hears of the user's edits: "begin 3", "3 = 40", "end 3".
class Edits : public EditorListener
{
public:
    void beginEdit(std::size_t parameter) override { add("begin %1", parameter); }
    void edit(std::size_t parameter, int value) override
    {
        add("edit %1", parameter);
        values[parameter] = value;
    }
    void endEdit(std::size_t parameter) override { add("end %1", parameter); }

    QStringList texts;
    ChannelValues values = defaultValues();

private:
    void add(const char* text, std::size_t parameter)
    {
        const QString entry = QString::fromLatin1(text).arg(parameter);
        if (texts.isEmpty() || texts.last() != entry)
            texts << entry;
    }
};

/// A workstation's window, with the editor's in it.
struct Workstation
{
    explicit Workstation(const EmbeddedEditor::Options& chosen = withProgram())
        : options(chosen)
    {
        window.open(options.width, options.height);
        options.parent = window.id();
        QObject::connect(&timer, &QTimer::timeout, &window, [this] { editor->relay(); });
        reopen();
        timer.start(5);
    }

    void reopen()
    {
        editor.reset();
        editor = std::make_unique<EmbeddedEditor>(edits, options);
        for (std::size_t parameter = 0; parameter < parameterCount; ++parameter)
            editor->setValue(parameter, edits.values[parameter]);
    }

    static EmbeddedEditor::Options withProgram()
    {
        EmbeddedEditor::Options options;
        options.findProgram = [] { return EDITOR_PROGRAM; };
        return options;
    }

    QImage picture() const { return window.picture(); }
    bool isShown() const { return window.isCovered(); }

    Edits edits;
    HostWindow window;
    QTimer timer;
    EmbeddedEditor::Options options;
    std::unique_ptr<EmbeddedEditor> editor;
};

constexpr std::size_t lowGain = parameterIndex(0, EqualizerField::Gain);
constexpr std::size_t highGain = parameterIndex(5, EqualizerField::Gain);
// In the editor at scale 1.
constexpr QRect outLeftBar(935, 150, 4, 300);
constexpr QRect outRightBar(944, 150, 4, 300);

QSet<QRgb> colorsOf(const QImage& image)
{
    QSet<QRgb> colors;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            colors.insert(image.pixel(x, y));
    }
    return colors;
}

QByteArray focusedWindow()
{
    QProcess process;
    process.start(QStringLiteral("xdotool"), {QStringLiteral("getwindowfocus")});
    process.waitForFinished();
    return process.readAllStandardOutput().trimmed();
}

} // namespace

class tst_EmbeddedEditor : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { QTRY_COMPARE(childrenRunning(EDITOR_PROGRAM), QStringList()); }

    void theEditorIsShownWithTheValues()
    {
        Workstation flat;
        QTRY_VERIFY(flat.isShown());
        const QImage before = flat.picture();
        flat.editor->setValue(lowGain, 60);
        QTRY_VERIFY(flat.picture() != before);
        flat.editor->setValue(lowGain, 0);
        QTRY_COMPARE(flat.picture(), before);
        QCOMPARE(flat.edits.texts, QStringList());
    }

    void metersMoveAndStayWithTheirSide()
    {
        Workstation workstation;
        QTRY_VERIFY(workstation.isShown());
        const QImage before = workstation.picture();
        workstation.editor->setMeter(OutRight, -30);
        QTRY_VERIFY(workstation.picture() != before);
        settle(workstation.window);
        const QImage after = workstation.picture();
        QCOMPARE(after.copy(outLeftBar), before.copy(outLeftBar));
        QVERIFY(after.copy(outRightBar) != before.copy(outRightBar));
    }

    void theCurveFollowsTheSampleRate()
    {
        Workstation workstation;
        workstation.editor->setValue(highGain, 120);
        workstation.editor->setSampleRate(192000);
        QTRY_VERIFY(workstation.isShown());
        settle(workstation.window);
        const QImage before = workstation.picture();
        workstation.editor->setSampleRate(44100);
        QTRY_VERIFY(workstation.picture() != before);
    }

    void aDragInTheGraphIsOneGesture()
    {
        Workstation workstation;
        QTRY_VERIFY(workstation.isShown());
        xdotool({"mousemove", "262", "109", "mousedown", "1", "mousemove", "262", "80", "mousemove",
                 "262", "70", "mouseup", "1"});
        QTRY_COMPARE(workstation.edits.texts.count(QStringLiteral("end 2")), 1);
        QCOMPARE(workstation.edits.texts.count(QStringLiteral("begin 2")), 1);
        QVERIFY(workstation.edits.values[lowGain] > 0);
    }

    void theWheelOverAKnobIsAGesture()
    {
        Workstation workstation;
        QTRY_VERIFY(workstation.isShown());
        xdotool({"mousemove", "306", "455", "click", "4"});
        const QStringList expected = {QStringLiteral("begin 2"), QStringLiteral("edit 2"),
                                      QStringLiteral("end 2")};
        QTRY_COMPARE(workstation.edits.texts, expected);
    }

    // The field has the keyboard while it is open, and the workstation before and after.
    void whatIsTypedArrives()
    {
        Workstation workstation;
        QTRY_VERIFY(workstation.isShown());
        const QByteArray owner = QByteArray::number(workstation.window.id());
        xdotool({"windowfocus", "--sync", owner});
        xdotool({"mousemove", "306", "491", "click", "--repeat", "2", "1"});
        QTRY_VERIFY(focusedWindow() != owner);
        xdotool({"key", "ctrl+a", "type", "6.5"});
        xdotool({"key", "Return"});
        QTRY_COMPARE(workstation.edits.values[lowGain], 65);
        QTRY_COMPARE(focusedWindow(), owner);
        QTRY_COMPARE(workstation.edits.texts.last(), QStringLiteral("end 2"));
    }

    void theWorkstationsValuesAreNoEdits()
    {
        Workstation workstation;
        QTRY_VERIFY(workstation.isShown());
        const QImage before = workstation.picture();
        for (int gain = -200; gain <= 200; gain += 7)
            workstation.editor->setValue(lowGain, gain);
        QTRY_VERIFY(workstation.picture() != before);
        settle(workstation.window);
        QCOMPARE(workstation.edits.texts, QStringList());
    }

    void anotherSizeKeepsTheProportion()
    {
        Workstation workstation;
        QTRY_VERIFY(workstation.isShown());
        workstation.window.resize(1300, 560);
        workstation.editor->resize(1300, 560);
        QTRY_COMPARE(workstation.picture().pixelColor(20, 280), HostWindow::ground);
        QTRY_COMPARE(workstation.picture().pixelColor(1280, 280), HostWindow::ground);
        QTRY_VERIFY(workstation.isShown());
        workstation.editor->resize(489, 280);
        QTRY_VERIFY(workstation.picture().pixelColor(244, 2) != HostWindow::ground);
        QCOMPARE(workstation.editor->width(), 489);
    }

    void anEditorThatDiesComesBackWithAClick()
    {
        Workstation workstation;
        workstation.editor->setValue(lowGain, 90);
        QTRY_VERIFY(workstation.isShown());
        settle(workstation.window);
        const QImage before = workstation.picture();
        xdotool({"mousemove", "398", "455", "mousedown", "1", "mousemove", "398", "420"});
        QTRY_VERIFY(!workstation.edits.texts.isEmpty());
        QCOMPARE(childrenRunning(EDITOR_PROGRAM).size(), 1);
        ::kill(childrenRunning(EDITOR_PROGRAM).first().toInt(), SIGSEGV);
        QTRY_VERIFY(!workstation.isShown());
        QTRY_COMPARE(workstation.edits.texts.last(), QStringLiteral("end 6"));
        workstation.editor->setValue(6, 0);
        xdotool({"mouseup", "1", "mousemove", "20", "500", "click", "1"});
        QTRY_VERIFY(workstation.isShown());
        QTRY_COMPARE(workstation.picture(), before);
    }

    void anEditorThatHangsIsLeft()
    {
        auto workstation = std::make_unique<Workstation>();
        QTRY_VERIFY(workstation->isShown());
        ::kill(childrenRunning(EDITOR_PROGRAM).first().toInt(), SIGSTOP);
        for (int i = 0; i < 3000; ++i)
            workstation->editor->setMeter(InLeft, -(i % 600));
        workstation.reset();
        QCOMPARE(childrenRunning(EDITOR_PROGRAM), QStringList());
    }

    void withoutTheProgramTheWindowSaysSo()
    {
        std::string program;
        EmbeddedEditor::Options options;
        options.findProgram = [&program] { return program; };
        Workstation workstation(options);
        workstation.editor->setValue(lowGain, 90);
        QTRY_VERIFY(colorsOf(workstation.picture()).size() > 1);
        QVERIFY(workstation.editor->isOpen());
        const QImage sentence = workstation.picture();
        xdotool({"mousemove", "20", "500", "click", "1"});
        settle(workstation.window);
        QCOMPARE(workstation.picture(), sentence);
        // It is installed, cannot be started, and is installed again.
        for (const char* installed :
             {EDITOR_PROGRAM, "/nonexistent/zolta-editor", EDITOR_PROGRAM}) {
            program = installed;
            xdotool({"click", "1"});
            QTRY_COMPARE(workstation.isShown(), program == EDITOR_PROGRAM);
            if (!workstation.isShown())
                QVERIFY(workstation.picture() != sentence);
            for (const QString& child : childrenRunning(EDITOR_PROGRAM))
                ::kill(child.toInt(), SIGKILL);
            QTRY_VERIFY(!workstation.isShown());
        }
    }

    void withoutAParentNothingIsOpened()
    {
        Edits edits;
        EmbeddedEditor::Options options;
        options.parent = 0x7fffffff;
        options.findProgram = [] { return EDITOR_PROGRAM; };
        EmbeddedEditor editor(edits, options);
        QVERIFY(!editor.isOpen());
        editor.setValue(lowGain, 3);
        editor.resize(10, 10);
        editor.relay();
    }

    void openingAndClosingLeavesNothingBehind()
    {
        const auto descriptors = [] {
            return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::Files).size();
        };
        Workstation workstation;
        QTRY_VERIFY(workstation.isShown());
        const auto before = descriptors();
        for (int i = 0; i < 5; ++i) {
            workstation.reopen();
            if (i % 2 == 0)
                QTRY_VERIFY(workstation.isShown());
        }
        QCOMPARE(descriptors(), before);
        QTRY_COMPARE(childrenRunning(EDITOR_PROGRAM).size(), 1);
    }
};

QTEST_MAIN(tst_EmbeddedEditor)
#include "tst_EmbeddedEditor.moc"
