// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/ParameterListModel.h"
#include "hosting/HostMemory.h"
#include "tests/support/CountingMemory.h"
#include "tests/support/TestObject.h"

#include <QAbstractItemModelTester>

class tst_ParameterListModel : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void isASoundModel();
    void showsEveryParameter();
    void showsOneRow_data();
    void showsOneRow();
    void followsTheMemory();
    void ignoresOtherChannels();
    void editsByText_data();
    void editsByText();
    void refusesNonsense();
    void onlyValuesCanBeEdited();
    void leavesTheMemoryAlone();
};

namespace {

using Model = ParameterListModel;

QString cell(const Model& model, int row, Model::Column column)
{
    return model.index(row, column).data().toString();
}

} // namespace

void tst_ParameterListModel::isASoundModel()
{
    HostMemory memory;
    Model model(memory, 3);
    const QAbstractItemModelTester tester(&model,
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    memory.reset(3);
    QVERIFY(model.setData(model.index(2, Model::ValueColumn), QStringLiteral("3"), Qt::EditRole));
}

void tst_ParameterListModel::showsEveryParameter()
{
    HostMemory memory;
    const Model model(memory, 0);
    QCOMPARE(model.rowCount(), 27);
    QCOMPARE(model.columnCount(), 5);
    for (int row = 0; row < 27; ++row)
        QCOMPARE(cell(model, row, Model::NameColumn),
                 QStringLiteral("fx_rackfx_prm_%1").arg(row + 1));
    const QStringList headers = {QStringLiteral("Parameter"), QStringLiteral("Value"),
                                 QStringLiteral("Unit"), QStringLiteral("Raw"),
                                 QStringLiteral("Name")};
    for (int column = 0; column < 5; ++column)
        QCOMPARE(model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString(),
                 headers[column]);
}

void tst_ParameterListModel::showsOneRow_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](int number, const char* title, const char* value, const char* unit,
                        const char* raw) {
        QTest::newRow(title) << number
                             << QStringList{QLatin1String(title), QLatin1String(value),
                                            QLatin1String(unit), QLatin1String(raw)};
    };
    row(0, "Low type", "Shelf 12", "", "3");
    row(1, "Low frequency", "80", "Hz", "241");
    row(10, "Middle 2 gain", "0.0", "dB", "0");
    row(16, "Middle 4 quality", "1.50", "", "158");
    row(23, "High on", "On", "", "1");
    row(25, "Output level", "0.0", "dB", "0");
    row(26, "Clean/drive", "Clean", "", "0");
}

void tst_ParameterListModel::showsOneRow()
{
    QFETCH(const int, row);
    HostMemory memory;
    const Model model(memory, 0);
    const QStringList shown = {
        cell(model, row, Model::TitleColumn), cell(model, row, Model::ValueColumn),
        cell(model, row, Model::UnitColumn), cell(model, row, Model::RawColumn)};
    QTEST(shown, "expected");
}

void tst_ParameterListModel::followsTheMemory()
{
    HostMemory memory;
    const Model model(memory, 2);
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    memory.setValue(0x0102, 2, 718, 0, 0, 1);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes[0][0].toModelIndex(), model.index(1, Model::ValueColumn));
    QCOMPARE(changes[0][1].toModelIndex(), model.index(1, Model::RawColumn));
    QCOMPARE(cell(model, 1, Model::ValueColumn), QStringLiteral("1.25k"));
    QCOMPARE(cell(model, 1, Model::RawColumn), QStringLiteral("718"));
}

void tst_ParameterListModel::ignoresOtherChannels()
{
    HostMemory memory;
    const Model model(memory, 2);
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    memory.setValue(0x0102, 3, 718, 0, 0, 1);
    QCOMPARE(changes.size(), 0);
    QCOMPARE(cell(model, 1, Model::RawColumn), QStringLiteral("241"));
}

void tst_ParameterListModel::editsByText_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("raw");
    QTest::addColumn<QString>("shown");
    QTest::newRow("frequency") << 1 << "1.25 kHz" << 718 << "1.25k";
    QTest::newRow("gain") << 2 << "+6dB" << 60 << "+6.0";
    QTest::newRow("type") << 0 << "hpf 6" << 1 << "HPF 6";
    QTest::newRow("switch") << 3 << "off" << 0 << "Off";
    QTest::newRow("beyond the range") << 24 << "-99" << -200 << "-20.0";
}

void tst_ParameterListModel::editsByText()
{
    QFETCH(const int, row);
    QFETCH(const QString, typed);
    HostMemory memory;
    Model model(memory, 4);
    QVERIFY(model.setData(model.index(row, Model::ValueColumn), typed, Qt::EditRole));
    QTEST(memory.values(4)[static_cast<std::size_t>(row)], "raw");
    QTEST(cell(model, row, Model::ValueColumn), "shown");
}

void tst_ParameterListModel::refusesNonsense()
{
    HostMemory memory;
    Model model(memory, 4);
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    QSignalSpy refusals(&model, &Model::refused);
    QVERIFY(
        !model.setData(model.index(2, Model::ValueColumn), QStringLiteral("loud"), Qt::EditRole));
    QCOMPARE(changes.size(), 0);
    QCOMPARE(refusals.size(), 1);
    QCOMPARE(refusals[0][0].toString(),
             QStringLiteral("\"loud\" is not a value of Low gain: enter a value from "
                            "-20.0 to +20.0 dB."));
    QCOMPARE(memory.values(4), HostMemory().values(4));
}

void tst_ParameterListModel::onlyValuesCanBeEdited()
{
    HostMemory memory;
    Model model(memory, 4);
    for (int column = 0; column < Model::ColumnCount; ++column) {
        const bool editable = column == Model::ValueColumn;
        QCOMPARE(model.flags(model.index(2, column)).testFlag(Qt::ItemIsEditable), editable);
        QCOMPARE(model.setData(model.index(2, column), QStringLiteral("3"), Qt::EditRole),
                 editable);
    }
    QVERIFY(!model.setData(QModelIndex(), QStringLiteral("3"), Qt::EditRole));
    QVERIFY(
        !model.setData(model.index(2, Model::ValueColumn), QStringLiteral("9"), Qt::DisplayRole));
    QCOMPARE(memory.values(4)[2], 30);
}

void tst_ParameterListModel::leavesTheMemoryAlone()
{
    CountingMemory memory;
    {
        const Model model(memory, 5);
        QVERIFY(memory.observers() > 0);
    }
    QCOMPARE(memory.observers(), 0);
}

QTEST_APPLESS_MAIN(tst_ParameterListModel)

#include "tst_ParameterListModel.moc"
