// SPDX-License-Identifier: GPL-3.0-or-later
// The plug-in in hosts with other toolkits, under a window manager, with sound running through it.
#include "daw/lv2/Ports.h"
#include "daw/window/EmbeddedEditor.h"
#include "engine/ChannelProcessor.h"
#include "tests/daw/HostWindow.h"
#include "tests/host/audio/JackServer.h"
#include "tests/support/TestObject.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSet>

#include <csignal>
#include <memory>
#include <optional>
#include <random>

namespace {

constexpr int patience = 20000; // ms
constexpr std::size_t middleGain = 6;
constexpr QPoint middleHandle(406, 109);
constexpr QPoint middleGainField(398, 491);
constexpr QRect graph(60, 10, 640, 190);

/// What runs through the plug-in again and again.
const std::vector<float>& noise()
{
    static const std::vector<float> samples = [] {
        std::minstd_rand generator(7);
        std::uniform_real_distribution<float> sample(-0.2F, 0.2F);
        std::vector<float> made(1024);
        std::generate(made.begin(), made.end(), [&] { return sample(generator); });
        return made;
    }();
    return samples;
}

/// What the equalizer makes of that, once what was before it has died away.
std::vector<float> equalizedNoise(int gain)
{
    ChannelValues values = defaultValues();
    values[middleGain] = gain;
    ChannelProcessor equalizer;
    equalizer.setValues(values);
    std::vector<double> block;
    for (int turn = 0; turn < 16; ++turn) {
        block.assign(noise().begin(), noise().end());
        equalizer.process(block);
    }
    return {block.begin(), block.end()};
}

/// What the display shows there.
QImage grab(const QRect& area)
{
    return qGuiApp->primaryScreen()
        ->grabWindow(0, area.x(), area.y(), area.width(), area.height())
        .toImage();
}

/// A program that hosts the plug-in, its editor open and both channels connected.
class Jalv
{
public:
    explicit Jalv(const QString& program)
        : m_ears("ears", noise())
    {
        m_process.start(program, {QString::fromLatin1(stereoUri)});
    }
    ~Jalv()
    {
        m_process.terminate();
        if (!m_process.waitForFinished(patience))
            m_process.kill();
    }
    Jalv(const Jalv&) = delete;
    Jalv& operator=(const Jalv&) = delete;

    bool isReady()
    {
        return QTest::qWaitFor([this] { return isShown(); }, patience) &&
               connect("ears:out_1", "Zolta Equalizer:in_l") &&
               connect("ears:out_2", "Zolta Equalizer:in_r") &&
               connect("Zolta Equalizer:out_l", "ears:in_1") &&
               connect("Zolta Equalizer:out_r", "ears:in_2");
    }
    bool isRunning() const { return m_process.state() == QProcess::Running; }
    QStringList editors() const { return childrenRunning(EDITOR_PROGRAM, m_process.processId()); }

    /// Where the editor is on the display.
    QRect place() const { return geometryOf({"--class", "zolta-editor"}); }
    bool isShown() const
    {
        const QColor top = picture({EmbeddedEditor::naturalWidth / 2, 4, 1, 1}).pixelColor(0, 0);
        return !place().isEmpty() && top != HostWindow::ground && top != Qt::black;
    }
    /// What is shown in an area of the editor, which counts as one at scale 1.
    QImage picture(const QRect& area) const
    {
        return grab({onDisplay(area.topLeft()), onDisplay(area.bottomRight())});
    }
    /// That, once it has been the same for a while.
    QImage restingPicture(const QRect& area) const
    {
        QImage last;
        for (int alike = 0; alike < 3;) {
            QTest::qWait(50);
            const QImage now = picture(area);
            alike = now == last ? alike + 1 : 0;
            last = now;
        }
        return last;
    }
    /// "mousemove" to a point of the editor, for xdotool().
    QByteArrayList moveTo(QPoint point) const
    {
        const QPoint at = onDisplay(point);
        return {"mousemove", QByteArray::number(at.x()), QByteArray::number(at.y())};
    }
    QByteArray window() const { return found({"--name", "Zolta Equalizer"}); }

    bool sounds(int gain) const
    {
        const std::vector<float> expected = equalizedNoise(gain);
        return m_ears.hears(0, noise().size(), expected) &&
               m_ears.hears(1, noise().size(), expected, 0.5F);
    }
    bool soundsSoon(int gain) const
    {
        return QTest::qWaitFor([this, gain] { return sounds(gain); }, patience);
    }
    /// The raise that can be heard; nothing where there is none, and while it changes.
    std::optional<int> heardRaise() const
    {
        for (int gain = 1; gain <= 200; ++gain) {
            if (sounds(gain))
                return gain;
        }
        return std::nullopt;
    }

private:
    static QByteArray found(const QByteArrayList& what)
    {
        QProcess search;
        QStringList words = {QStringLiteral("search"), QStringLiteral("--onlyvisible")};
        for (const QByteArray& word : what)
            words << QString::fromLatin1(word);
        search.start(QStringLiteral("xdotool"), words);
        search.waitForFinished(patience);
        return search.readAllStandardOutput().simplified().split(' ').last();
    }
    static QRect geometryOf(const QByteArrayList& what)
    {
        const QByteArray window = found(what);
        if (window.isEmpty())
            return {};
        QProcess ask;
        ask.start(QStringLiteral("xdotool"),
                  {QStringLiteral("getwindowgeometry"), QStringLiteral("--shell"),
                   QString::fromLatin1(window)});
        ask.waitForFinished(patience);
        QMap<QByteArray, int> numbers;
        for (const QByteArray& line : ask.readAllStandardOutput().split('\n'))
            numbers[line.split('=').first()] = line.split('=').last().toInt();
        return {numbers["X"], numbers["Y"], numbers["WIDTH"], numbers["HEIGHT"]};
    }
    // The editor is as large as fits, in the middle.
    QPoint onDisplay(QPoint point) const
    {
        const QRect area = place();
        const QSizeF natural(EmbeddedEditor::naturalWidth, EmbeddedEditor::naturalHeight);
        const QSizeF shown = natural.scaled(area.size(), Qt::KeepAspectRatio);
        const QPointF corner = QRectF(area).center() - QRectF(QPointF(), shown).center();
        return (corner + QPointF(point) * shown.width() / natural.width()).toPoint();
    }
    bool connect(const char* from, const char* to) const
    {
        return QTest::qWaitFor(
            [=] {
                QProcess connection;
                connection.start(QStringLiteral("jack_connect"),
                                 {QString::fromLatin1(from), QString::fromLatin1(to)});
                return connection.waitForFinished(patience) && connection.exitCode() == 0;
            },
            patience);
    }

    JackEars m_ears;
    QProcess m_process;
};

} // namespace

class tst_Jalv : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("LV2_PATH", LV2_FOLDER ":/usr/lib/lv2");
        m_server = std::make_unique<JackServer>();
        QVERIFY2(m_server->isRunning(), qPrintable(m_server->errorText()));
        m_manager.start(QStringLiteral("openbox"), {QStringLiteral("--sm-disable")});
        QTRY_COMPARE_WITH_TIMEOUT(
            QProcess::execute(QStringLiteral("xdotool"), {QStringLiteral("get_num_desktops")}), 0,
            patience);
    }
    void cleanupTestCase()
    {
        m_manager.terminate();
        m_manager.waitForFinished();
        m_server.reset();
    }

    void theEditorIsShownInItsSize_data() { hosts(); }
    void theEditorIsShownInItsSize()
    {
        QFETCH(QString, program);
        Jalv host(program);
        QVERIFY(host.isReady());
        QCOMPARE(host.place().size(),
                 QSize(EmbeddedEditor::naturalWidth, EmbeddedEditor::naturalHeight));
        QVERIFY(host.soundsSoon(0));
    }

    void aDragInTheGraphIsHeard_data() { hosts(); }
    void aDragInTheGraphIsHeard()
    {
        QFETCH(QString, program);
        Jalv host(program);
        QVERIFY(host.isReady());
        QVERIFY(host.soundsSoon(0));
        const QByteArrayList end = host.moveTo(middleHandle - QPoint(0, 30));
        xdotool(host.moveTo(middleHandle) + QByteArrayList{"mousedown", "1", "sleep", "0.1"} + end +
                QByteArrayList{"sleep", "0.1"} + end + QByteArrayList{"mouseup", "1"});
        QTRY_VERIFY_WITH_TIMEOUT(host.heardRaise().has_value(), patience);
    }

    void whatIsTypedIsHeard_data() { hosts(); }
    void whatIsTypedIsHeard()
    {
        QFETCH(QString, program);
        Jalv host(program);
        QVERIFY(host.isReady());
        type(host, "6.5");
        QVERIFY(host.soundsSoon(65));
    }

    void theEditorFillsTheWindow_data() { hosts(); }
    void theEditorFillsTheWindow()
    {
        QFETCH(QString, program);
        Jalv host(program);
        QVERIFY(host.isReady());
        xdotool({"windowsize", host.window(), "1300", "800"});
        QTRY_COMPARE_WITH_TIMEOUT(host.place().width(), 1300, patience);
        QTRY_VERIFY_WITH_TIMEOUT(host.isShown(), patience);
        type(host, "4.2");
        QVERIFY(host.soundsSoon(42));
    }

    void theHostSurvivesTheEditor_data() { hosts(); }
    void theHostSurvivesTheEditor()
    {
        QFETCH(QString, program);
        Jalv host(program);
        QVERIFY(host.isReady());
        const QImage flat = host.restingPicture(graph);
        type(host, "6.5");
        QTRY_VERIFY_WITH_TIMEOUT(host.picture(graph) != flat, patience);
        const QImage before = host.restingPicture(graph);
        const QRect place = host.place();
        QCOMPARE(host.editors().size(), 1);
        ::kill(host.editors().first().toInt(), SIGSEGV);
        QTRY_VERIFY_WITH_TIMEOUT(showsMessage(place), patience);
        QVERIFY(host.editors().isEmpty());
        QVERIFY(host.soundsSoon(65));
        xdotool({"mousemove", QByteArray::number(place.x() + 100),
                 QByteArray::number(place.y() + 300), "click", "1"});
        QTRY_VERIFY_WITH_TIMEOUT(host.isShown() && host.picture(graph) == before, patience);
        QVERIFY(host.soundsSoon(65));
    }

    void closingTheHostLeavesNothing_data() { hosts(); }
    void closingTheHostLeavesNothing()
    {
        QFETCH(QString, program);
        Jalv host(program);
        QVERIFY(host.isReady());
        const QString editor = QStringLiteral("/proc/") + host.editors().value(0);
        QVERIFY(QFile::exists(editor));
        xdotool({"windowactivate", "--sync", host.window(), "key", "alt+F4"});
        QTRY_VERIFY_WITH_TIMEOUT(!host.isRunning(), patience);
        QTRY_VERIFY_WITH_TIMEOUT(!QFile::exists(editor), patience);
    }

private:
    static void hosts()
    {
        QTest::addColumn<QString>("program");
        for (const char* program : {"jalv.gtk3", "jalv.qt5"})
            QTest::newRow(program) << QString::fromLatin1(program);
    }
    // Whether the plug-in's window itself, with a line of text in the middle, is shown there.
    static bool showsMessage(const QRect& place)
    {
        const QImage shown = grab(place);
        QSet<QRgb> colors;
        for (int x = 0; x < shown.width(); ++x) {
            for (int y = shown.height() / 2 - 12; y < shown.height() / 2; ++y)
                colors << shown.pixel(x, y);
        }
        return shown.pixelColor(shown.width() / 2, 4) == HostWindow::ground && colors.size() > 1;
    }
    // The keys go to the field once it is open and has the focus.
    static void type(const Jalv& host, const char* text)
    {
        xdotool(host.moveTo(middleGainField) + QByteArrayList{"click", "--repeat", "2", "1",
                                                              "sleep", "0.5", "key", "ctrl+a",
                                                              "type", text});
        xdotool({"key", "Return"});
    }

    std::unique_ptr<JackServer> m_server;
    QProcess m_manager;
};

QTEST_MAIN(tst_Jalv)
#include "tst_Jalv.moc"
