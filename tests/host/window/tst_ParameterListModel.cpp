// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/window/ParameterListModel.h"
#include "hosting/HostMemory.h"
#include "tests/support/CountingMemory.h"
#include "tests/support/TestObject.h"

#include <QAbstractItemModelTester>

using namespace Qt::StringLiterals;

class tst_ParameterListModel : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void isASoundModel();
    void showsEveryParameter();
    void showsOneRow_data();
    void showsOneRow();
    void followsTheMemory();
    void editsByText_data();
    void editsByText();
    void refusesNonsense();
    void onlyValuesCanBeEdited();
    void leavesTheMemoryAlone();

private:
    using Model = ParameterListModel;

    static constexpr int channel = 4;

    QString cell(int row, Model::Column column) const
    {
        return m_model->index(row, column).data().toString();
    }
    bool edit(int row, int column, const QString& text, int role = Qt::EditRole)
    {
        return m_model->setData(m_model->index(row, column), text, role);
    }

    std::unique_ptr<Model> m_model;
    std::unique_ptr<CountingMemory> m_memory;
};

void tst_ParameterListModel::init()
{
    TestObject::init();
    m_model.reset();
    m_memory = std::make_unique<CountingMemory>();
    m_model = std::make_unique<Model>(*m_memory, channel);
}

void tst_ParameterListModel::isASoundModel()
{
    const QAbstractItemModelTester tester(m_model.get(),
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    m_memory->reset(channel);
    QVERIFY(edit(2, Model::ValueColumn, u"3"_s));
}

void tst_ParameterListModel::showsEveryParameter()
{
    QCOMPARE(m_model->rowCount(), 27);
    for (int row = 0; row < 27; ++row)
        QCOMPARE(cell(row, Model::NameColumn), u"fx_rackfx_prm_%1"_s.arg(row + 1));
    QStringList headers;
    for (int column = 0; column < m_model->columnCount(); ++column)
        headers << m_model->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    QCOMPARE(headers, (QStringList{u"Parameter"_s, u"Value"_s, u"Unit"_s, u"Raw"_s, u"Name"_s}));
}

void tst_ParameterListModel::showsOneRow_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("expected");
    QTest::newRow("Low type") << 0 << "Low type|Shelf 12||3";
    QTest::newRow("Low frequency") << 1 << "Low frequency|80|Hz|241";
    QTest::newRow("Middle 2 gain") << 10 << "Middle 2 gain|0.0|dB|0";
    QTest::newRow("Middle 4 quality") << 16 << "Middle 4 quality|1.50||158";
    QTest::newRow("High on") << 23 << "High on|On||1";
    QTest::newRow("Output level") << 25 << "Output level|0.0|dB|0";
    QTest::newRow("Clean/drive") << 26 << "Clean/drive|Clean||0";
}

void tst_ParameterListModel::showsOneRow()
{
    QFETCH(const int, row);
    const QStringList shown = {cell(row, Model::TitleColumn), cell(row, Model::ValueColumn),
                               cell(row, Model::UnitColumn), cell(row, Model::RawColumn)};
    QTEST(shown.join(u'|'), "expected");
}

void tst_ParameterListModel::followsTheMemory()
{
    QSignalSpy changes(m_model.get(), &QAbstractItemModel::dataChanged);
    m_memory->setValue(0x0102, 3, 718, 0, 0, 1); // another channel
    QCOMPARE(changes.size(), 0);
    QCOMPARE(cell(1, Model::RawColumn), u"241"_s);
    m_memory->setValue(0x0102, channel, 718, 0, 0, 1);
    QCOMPARE(changes.size(), 1);
    QCOMPARE(changes[0][0].toModelIndex(), m_model->index(1, Model::ValueColumn));
    QCOMPARE(changes[0][1].toModelIndex(), m_model->index(1, Model::RawColumn));
    QCOMPARE(cell(1, Model::ValueColumn), u"1.25k"_s);
    QCOMPARE(cell(1, Model::RawColumn), u"718"_s);
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
    QVERIFY(edit(row, Model::ValueColumn, typed));
    QTEST(m_memory->values(channel)[static_cast<std::size_t>(row)], "raw");
    QTEST(cell(row, Model::ValueColumn), "shown");
}

void tst_ParameterListModel::refusesNonsense()
{
    QSignalSpy changes(m_model.get(), &QAbstractItemModel::dataChanged);
    QSignalSpy refusals(m_model.get(), &Model::refused);
    QVERIFY(!edit(2, Model::ValueColumn, u"loud"_s));
    QCOMPARE(changes.size(), 0);
    QCOMPARE(refusals.size(), 1);
    QCOMPARE(refusals[0][0].toString(), u"\"loud\" is not a value of Low gain: enter a value from "
                                        "-20.0 to +20.0 dB."_s);
    QCOMPARE(m_memory->values(channel), HostMemory().values(channel));
}

void tst_ParameterListModel::onlyValuesCanBeEdited()
{
    for (int column = 0; column < Model::ColumnCount; ++column) {
        const bool editable = column == Model::ValueColumn;
        QCOMPARE(m_model->flags(m_model->index(2, column)).testFlag(Qt::ItemIsEditable), editable);
        QCOMPARE(edit(2, column, u"3"_s), editable);
    }
    QVERIFY(!m_model->setData(QModelIndex(), u"3"_s, Qt::EditRole));
    QVERIFY(!edit(2, Model::ValueColumn, u"9"_s, Qt::DisplayRole));
    QCOMPARE(m_memory->values(channel)[2], 30);
}

void tst_ParameterListModel::leavesTheMemoryAlone()
{
    QVERIFY(m_memory->observers() > 0);
    m_model.reset();
    QCOMPARE(m_memory->observers(), 0);
}

QTEST_APPLESS_MAIN(tst_ParameterListModel)

#include "tst_ParameterListModel.moc"
