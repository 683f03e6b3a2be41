// SPDX-License-Identifier: GPL-3.0-or-later
#include "equalizer/FILTER2PEQ.h"
#include "equalizer/VEQ_Filter.h"
#include "tests/equalizer/FilterTesting.h"
#include "tests/support/TestObject.h"

#include <QFile>

#include <array>
#include <map>

namespace {

using Row = std::map<QByteArray, double>;

constexpr std::array Probes = {30.0, 440.0, 3000.0, 18000.0};

// 20 log10(e): dB that a relative error of 1 is worth.
constexpr double DecibelsPerUnit = 8.6858896380650366;

// The last steps to a level or a phase (quotient, logarithm, arcus tangent), in units of 1.
constexpr double LastSteps = 1e-15;

using SectionDesign = void (*)(VEQ_Filter&, double f, double g, double fs);

const std::map<QByteArray, SectionDesign>& sectionDesigns()
{
    static const std::map<QByteArray, SectionDesign> designs = {
        {"LOWS_A", [](VEQ_Filter& v, double f, double g, double s) { v.setCoefLOWS_A(f, g, s); }},
        {"LOWS_B", [](VEQ_Filter& v, double f, double g, double s) { v.setCoefLOWS_B(f, g, s); }},
        {"LOWS_2A", [](VEQ_Filter& v, double f, double g, double s) { v.setCoefLOWS_2A(f, g, s); }},
        {"LOWS_2B", [](VEQ_Filter& v, double f, double g, double s) { v.setCoefLOWS_2B(f, g, s); }},
        {"HIGS_A", [](VEQ_Filter& v, double f, double g, double s) { v.setCoefHIGS_A(f, g, s); }},
        {"HIGS_B", [](VEQ_Filter& v, double f, double g, double s) { v.setCoefHIGS_B(f, g, s); }},
        {"HIGS_2A", [](VEQ_Filter& v, double f, double g, double s) { v.setCoefHIGS_2A(f, g, s); }},
        {"HIGS_2B", [](VEQ_Filter& v, double f, double g, double s) { v.setCoefHIGS_2B(f, g, s); }},
        {"HPF1", [](VEQ_Filter& v, double f, double, double s) { v.setCoefHPF(1, f, s); }},
        {"HPF2", [](VEQ_Filter& v, double f, double, double s) { v.setCoefHPF(2, f, s); }},
        {"LPF1", [](VEQ_Filter& v, double f, double, double s) { v.setCoefLPF(1, f, s); }},
        {"LPF2", [](VEQ_Filter& v, double f, double, double s) { v.setCoefLPF(2, f, s); }},
    };
    return designs;
}

// "level" at 440 Hz stands in the column "level440.0".
double at(const Row& row, const char* what, double probe)
{
    return row.at(QByteArray(what) + QByteArray::number(probe, 'f', 1));
}

double wrapped(double angle) { return std::remainder(angle, 2.0 * M_PI); }

} // namespace

Q_DECLARE_METATYPE(Row)

/// The filters against numbers computed from the analog filters in 50-digit arithmetic
/// (reference.py). Each number carries the error that double precision may have in it.
class tst_FilterReference : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void section_data() { loadRows(false); }
    void section();
    void peak_data() { loadRows(true); }
    void peak();

private:
    static void loadRows(bool peaks);
};

void tst_FilterReference::loadRows(bool peaks)
{
    QTest::addColumn<QByteArray>("design");
    QTest::addColumn<Row>("row");

    QFile file(QStringLiteral(REFERENCE_FILE));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QList<QByteArray> header;
    while (!file.atEnd()) {
        const QList<QByteArray> cells = file.readLine().trimmed().split('\t');
        if (cells.first().toLower() == cells.first()) {
            header = cells;
            continue;
        }
        if ((header.first() == "peak") != peaks)
            continue;
        Row row;
        for (qsizetype i = 1; i < cells.size(); ++i) {
            bool ok = false;
            row[header.at(i)] = cells.at(i).toDouble(&ok);
            QVERIFY(ok);
        }
        QTest::newRow(cells.mid(0, 5).join(' ').constData()) << cells.first() << row;
    }
}

void tst_FilterReference::section()
{
    QFETCH(const QByteArray, design);
    QFETCH(const Row, row);
    const double fs = row.at("fs");
    VEQ_Filter filter;
    sectionDesigns().at(design)(filter, row.at("f"), row.at("g"), fs);

    std::array<double, 5> c{};
    filter.getCoefDirect(c.data(), 5);
    constexpr std::array names = {"b0", "b1", "b2", "a1", "a2"};
    for (std::size_t i = 0; i < names.size(); ++i)
        COMPARE_WITHIN(c[i], row.at(names[i]), row.at("bound"));

    for (const double probe : Probes) {
        const double bound = at(row, "bound", probe) + LastSteps;
        const double level = at(row, "level", probe);
        COMPARE_WITHIN(filter.power(probe, fs), level,
                       DecibelsPerUnit * bound + LastSteps * std::abs(level));
        COMPARE_WITHIN(wrapped(filter.phase(probe, fs) - at(row, "phase", probe)), 0.0, bound);
    }
}

void tst_FilterReference::peak()
{
    QFETCH(const Row, row);
    const double fs = row.at("fs");
    const double g = row.at("g");
    FILTER2PEQ filter;
    filter.setCoefBPF_C(row.at("f"), fs, row.at("q"), g, true);

    COMPARE_WITHIN(filter.coefficients()[0], row.at("c0"), row.at("bound"));
    COMPARE_WITHIN(filter.coefficients()[1], row.at("c1"), row.at("bound"));
    COMPARE_WITHIN(filter.coefficients()[2], row.at("c2"), row.at("bound"));
    COMPARE_WITHIN(filter.gainFactor(), row.at("k"), LastSteps * (1.0 + row.at("k")));
    COMPARE_WITHIN(filter.scaledGain(), row.at("c2") * row.at("k"),
                   (1.0 + row.at("k")) * row.at("bound"));

    for (const double probe : Probes) {
        const double bound = at(row, "bound", probe) + LastSteps;
        const std::complex<double> expected(at(row, "re", probe), at(row, "im", probe));
        COMPARE_WITHIN(std::abs(filter.response_bpf(probe, fs) - expected), 0.0,
                       bound * std::abs(expected));

        const double k = filter.gainFactor();
        const double level =
            g < 0.0 ? filter.power_cut(probe, fs, k) : filter.power_boost(probe, fs, k);
        COMPARE_WITHIN(level, at(row, "level", probe), DecibelsPerUnit * bound);
    }
}

QTEST_APPLESS_MAIN(tst_FilterReference)
#include "tst_FilterReference.moc"
