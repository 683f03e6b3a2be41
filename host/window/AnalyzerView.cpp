// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/AnalyzerView.h"

#include "engine/MixBus.h"
#include "host/analysis/ReadoutText.h"
#include "host/analysis/SignalReader.h"
#include "host/audio/AudioSession.h"
#include "host/model/MixerModel.h"
#include "host/window/MixerStyle.h"

#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int smallestViewWidth = 240;
constexpr int headerHeight = 26;
constexpr int footerHeight = 24;
constexpr double numbersMargin = 56.0; // beside the plot
constexpr double loudestBand = 12.0;   // dB
constexpr double semitone = 1.0 / 12.0;
constexpr double firstCursor = 1000.0; // Hz

// Where the plot of an editor begins and ends, in parts of the editor's width.
constexpr double editorLeft = 137.5 / 977.0;
constexpr double editorRight = 758.5 / 977.0;

} // namespace

AnalyzerView::AnalyzerView(MixerModel& mixerModel, int channel, QWidget* parent, int delay)
    : QWidget(parent)
    , m_mixerModel(mixerModel)
    , m_channel(channel)
{
    setMinimumSize(smallestViewWidth, viewHeight);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseTracking(true);
    setFocusPolicy(Qt::TabFocus);
    m_comparison.setSampleRate(48000);
    m_timer.setInterval(interval);
    m_timer.callOnTimeout(this, &AnalyzerView::takeSamples);
    m_delay.setSingleShot(true);
    m_delay.setInterval(delay);
    m_delay.callOnTimeout(this, &AnalyzerView::measure);
    connect(&mixerModel, &MixerModel::channelChanged, this, &AnalyzerView::followChannel);
    connect(&mixerModel, &MixerModel::transportChanged, this, &AnalyzerView::followTransport);
    followTransport();
}

AnalyzerView::~AnalyzerView() = default;

void AnalyzerView::alignWith(QWidget* stage)
{
    m_stage = stage;
    stage->installEventFilter(this);
    rebuild();
}

void AnalyzerView::setSampleRate(int hertz)
{
    m_comparison.setSampleRate(hertz);
    if (isVisible())
        measure();
}

void AnalyzerView::setSettings(const AnalyzerSettings& settings)
{
    if (m_settings == settings)
        return;
    m_settings = settings;
    m_analyzer.setSettings(settings);
    rebuild();
}

void AnalyzerView::setFrozen(bool frozen)
{
    m_frozen = frozen;
    listen();
}

void AnalyzerView::reset()
{
    m_analyzer.reset();
    rebuild();
}

QSize AnalyzerView::sizeHint() const { return {600, viewHeight}; }

AnalyzerPlot AnalyzerView::plot() const
{
    double left = numbersMargin;
    double right = width() - numbersMargin;
    if (m_stage) {
        const double start = mapFromGlobal(m_stage->mapToGlobal(QPointF())).x();
        const double begin = start + m_stage->width() * editorLeft;
        const double end = start + m_stage->width() * editorRight;
        if (begin >= numbersMargin && end <= width() - numbersMargin &&
            end - begin > width() / 3.0) {
            left = begin;
            right = end;
        }
    }
    const double ratio = devicePixelRatioF(); // whole pixels, so that lines are sharp
    left = std::round(left * ratio) / ratio;
    const double extent = std::max(std::round((right - left) * ratio) / ratio, 1.0);
    const int extentDown =
        std::max(height() - headerHeight - footerHeight - 8, AnalyzerPlot::steps);
    return {QRectF(left, headerHeight, extent, extentDown), curveRange()};
}

// A stopped device keeps its last picture.
void AnalyzerView::followTransport()
{
    m_reader.reset();
    if (const AudioSession* transport = m_mixerModel.transport())
        connect(transport, &AudioSession::changed, this, &AnalyzerView::listen,
                Qt::UniqueConnection);
    listen();
}

void AnalyzerView::followChannel(int changed)
{
    if (changed != m_channel && changed != m_mixerModel.leaderOf(m_channel))
        return;
    if (m_reader && m_pair != m_mixerModel.isPair(m_channel)) {
        m_reader.reset();
        listen();
    }
    if (isVisible())
        m_delay.start();
}

void AnalyzerView::listen()
{
    AudioSession* transport = m_mixerModel.transport();
    const bool playing = transport && transport->state() == AudioSession::State::Playing;
    if (!playing || m_frozen || !m_shown) {
        m_timer.stop();
        m_reader.reset();
        return;
    }
    if (m_reader)
        return;
    m_pair = m_mixerModel.isPair(m_channel);
    std::vector<SignalTap*> taps;
    for (int side = 0; side < (m_pair ? 2 : 1); ++side)
        taps.push_back(&transport->bus().tap(m_mixerModel.leaderOf(m_channel) + side));
    m_analyzer.setSampleRate(transport->bus().engine().sampleRate());
    m_reader = std::make_unique<SignalReader>(std::move(taps), m_analyzer);
    m_timer.start();
}

void AnalyzerView::measure()
{
    m_comparison.measure(m_mixerModel.memory().values(m_channel),
                         m_mixerModel.soundingValues(m_channel));
    rebuild();
}

void AnalyzerView::takeSamples()
{
    if (m_reader->update())
        update();
}

void AnalyzerView::moveCursor(std::optional<double> frequency)
{
    if (frequency)
        frequency =
            std::clamp(*frequency, BandDesign::MinimumFrequency, BandDesign::MaximumFrequency);
    if (m_cursor == frequency)
        return;
    m_cursor = frequency;
    QStringList texts;
    for (const AnalyzerPainting::Line& line : readout())
        texts << line.label + QLatin1Char(' ') + line.value;
    setAccessibleDescription(texts.join(QLatin1String(", ")));
    update();
}

QList<AnalyzerPainting::Line> AnalyzerView::readout() const
{
    using AnalyzerPainting::Line;
    if (!m_cursor)
        return {};
    QList<Line> lines = {{tr("Frequency"), frequencyText(*m_cursor)},
                         {tr("Note"), noteName(*m_cursor)}};
    if (m_analyzer.hasLevels()) {
        const std::size_t column = m_analyzer.columnOf(*m_cursor);
        const double before = double{m_analyzer.levels(SpectrumAnalyzer::Before)[column]};
        const double after = double{m_analyzer.levels(SpectrumAnalyzer::After)[column]};
        lines << Line{tr("Before"), levelText(before)} << Line{tr("After"), levelText(after)}
              << Line{tr("Difference"), levelText(after - before)};
        if (!m_analyzer.peaks().empty())
            lines << Line{tr("Peak"), levelText(double{m_analyzer.peaks()[column]})};
    }
    if (m_settings.curve) {
        const EqualizerBands& bands = m_comparison.bands();
        lines << Line{tr("Curve"),
                      levelText(bands.response().levels(*m_cursor, bands.sampleRate()).total)};
    }
    return lines;
}

// All boosts are in the picture, and cuts as far down.
double AnalyzerView::curveRange() const
{
    double boost = 0.0;
    for (const double level : m_comparison.drawn())
        boost = std::max(boost, level);
    double range = loudestBand;
    while (range < boost && range < 4.0 * loudestBand)
        range *= 2.0;
    return range;
}

bool AnalyzerView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_stage && (event->type() == QEvent::Resize || event->type() == QEvent::Move))
        rebuild();
    return QWidget::eventFilter(watched, event);
}

void AnalyzerView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::FontChange)
        rebuild();
}

void AnalyzerView::showEvent(QShowEvent*)
{
    m_shown = true;
    measure();
    listen();
}

void AnalyzerView::hideEvent(QHideEvent*)
{
    m_shown = false;
    listen();
}

void AnalyzerView::resizeEvent(QResizeEvent*) { rebuild(); }

void AnalyzerView::mouseMoveEvent(QMouseEvent* event)
{
    const AnalyzerPlot where = plot();
    const bool inside = where.area.contains(event->position());
    const double middle = event->position().x() + 0.5 / devicePixelRatioF(); // of the pixel
    moveCursor(inside ? std::optional(where.frequency(middle)) : std::nullopt);
}

void AnalyzerView::mouseDoubleClickEvent(QMouseEvent*) { reset(); }

void AnalyzerView::leaveEvent(QEvent*) { moveCursor({}); }

void AnalyzerView::keyPressEvent(QKeyEvent* event)
{
    const double from = m_cursor.value_or(firstCursor);
    switch (event->key()) {
    case Qt::Key_Left:
        return moveCursor(m_cursor ? from / std::exp2(semitone) : from);
    case Qt::Key_Right:
        return moveCursor(m_cursor ? from * std::exp2(semitone) : from);
    case Qt::Key_PageDown:
        return moveCursor(from / 2.0);
    case Qt::Key_PageUp:
        return moveCursor(from * 2.0);
    case Qt::Key_Home:
        return moveCursor(BandDesign::MinimumFrequency);
    case Qt::Key_End:
        return moveCursor(BandDesign::MaximumFrequency);
    case Qt::Key_Escape:
        return moveCursor({});
    default:
        QWidget::keyPressEvent(event);
    }
}

void AnalyzerView::paintEvent(QPaintEvent*)
{
    if (m_ground.isNull())
        buildGround();
    compose();
    const AnalyzerPlot where = plot();
    QPainter painter(this);
    painter.setFont(MixerStyle::smallFont(this));
    painter.drawImage(0, 0, m_ground);
    painter.drawImage(QRectF(where.area), m_raster.image());
    const QList<AnalyzerPainting::Line> lines = readout();
    if (m_cursor)
        AnalyzerPainting::drawCursor(painter, where, *m_cursor);
    AnalyzerPainting::drawReadout(painter, size(), where, lines);
    if (!m_analyzer.hasLevels())
        AnalyzerPainting::drawHint(painter, where, tr("Nothing is played"));
    if (hasFocus())
        AnalyzerPainting::drawFocus(painter, size());
}

void AnalyzerView::rebuild()
{
    m_ground = QImage();
    update();
}

// What stands still, in the pixels of the screen, and the part of it that curves are drawn over.
void AnalyzerView::buildGround()
{
    const AnalyzerPlot where = plot();
    const double ratio = devicePixelRatioF();
    m_ground = QImage((QSizeF(size()) * ratio).toSize(), QImage::Format_RGB32);
    m_ground.setDevicePixelRatio(ratio);
    QPainter painter(&m_ground);
    painter.setFont(MixerStyle::smallFont(this));
    AnalyzerPainting::drawGround(painter, size(), where, m_settings.curve);
    AnalyzerPainting::drawLegend(painter, where, legend(), where.area.right());
    painter.end();
    const QRect pixels(QPointF(where.area.topLeft() * ratio).toPoint(),
                       QSizeF(where.area.size() * ratio).toSize());
    m_raster.setGround(m_ground.copy(pixels), AnalyzerPainting::fillColor);
    m_analyzer.setColumns(static_cast<std::size_t>(pixels.width()));
    placeCurve(where, ratio);
}

// In pixels of the plot.
void AnalyzerView::placeCurve(const AnalyzerPlot& where, double ratio)
{
    m_curve.clear();
    m_dots.clear();
    if (!m_settings.curve)
        return;
    const EqualizerBands& bands = m_comparison.bands();
    const EqualizerResponse response = bands.response();
    const double farthest = 1.2 * where.curveRange;
    const auto pixelY = [&](double level) {
        return (where.curveY(std::clamp(level, -farthest, farthest)) - where.area.top()) * ratio;
    };
    for (int x = 0; x < m_raster.size().width(); ++x) {
        const double frequency = where.frequency(where.area.left() + (x + 0.5) / ratio);
        const double level = response.levels(frequency, bands.sampleRate()).total;
        m_curve.push_back(static_cast<float>(pixelY(level)));
    }
    for (std::size_t i = 0; i < m_comparison.measured().size(); ++i)
        m_dots.emplace_back((where.x(m_comparison.frequencies()[i]) - where.area.left()) * ratio,
                            pixelY(m_comparison.measured()[i]));
}

void AnalyzerView::compose()
{
    const auto scale = static_cast<float>(devicePixelRatioF());
    m_raster.clear();
    if (m_analyzer.hasLevels()) {
        const std::vector<float> after = toPixels(m_analyzer.levels(SpectrumAnalyzer::After));
        m_raster.fill(after);
        m_raster.drawLine(toPixels(m_analyzer.levels(SpectrumAnalyzer::Before)), scale,
                          AnalyzerPainting::beforeColor);
        m_raster.drawLine(toPixels(m_analyzer.peaks()), scale, AnalyzerPainting::peakColor);
        m_raster.drawLine(after, 1.25F * scale, AnalyzerPainting::afterColor);
    }
    m_raster.drawLine(m_curve, 1.5F * scale, AnalyzerPainting::curveColor);
    m_raster.drawDots(m_dots, 1.6F * scale, Qt::white);
}

QList<AnalyzerPainting::Entry> AnalyzerView::legend() const
{
    using AnalyzerPainting::Entry;
    QList<Entry> entries = {Entry{tr("After"), AnalyzerPainting::afterColor},
                            Entry{tr("Before"), AnalyzerPainting::beforeColor}};
    if (m_settings.peaks)
        entries << Entry{tr("Peak"), AnalyzerPainting::peakColor};
    if (m_settings.curve)
        entries << Entry{tr("Curve"), AnalyzerPainting::curveColor}
                << Entry{tr("Measured"), Qt::white, true};
    return entries;
}

std::vector<float> AnalyzerView::toPixels(const SpectrumAnalyzer::Levels& levels) const
{
    const auto height = static_cast<float>(m_raster.size().height());
    const float scale = height / static_cast<float>(AnalyzerPlot::highest - AnalyzerPlot::lowest);
    std::vector<float> curve;
    curve.reserve(levels.size());
    for (const float level : levels)
        curve.push_back(std::clamp((static_cast<float>(AnalyzerPlot::highest) - level) * scale,
                                   -9.0F, height + 9.0F));
    return curve;
}

#include "moc_AnalyzerView.cpp"
