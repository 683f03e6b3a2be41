// SPDX-License-Identifier: GPL-3.0-or-later
#include "interfaces/IMemAPI.h"
#include "interfaces/IMeterNotifier.h"
#include "interfaces/IMeterObserver.h"
#include "interfaces/IModelInfo.h"
#include "interfaces/IPrmObserver.h"
#include "interfaces/IVaskEffect.h"
#include "interfaces/IVaskEffectChFx.h"
#include "interfaces/IVaskEffectEditor2.h"
#include "tests/support/TestHost.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QPluginLoader>

#include <pluginterfaces/vst/ivstcomponent.h>

#include <array>
#include <cstring>
#include <memory>
#include <typeinfo>

/// The host's interfaces are a binary contract: what counts is the position of each operation in
/// the table of virtual functions. The positions stand here as numbers, as the host's maker gives
/// them, and are checked without the help of the headers that declare the operations: services that
/// the host provides are hand-made tables, and what the library provides is called by position.
class tst_SlotOrder : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void modelInfo();
    void memAPI();
    void meterNotifier();
    void effect();
    void effectChFx();
    void editor();
    void prmObserver();
    void meterObserver();

private:
    QPluginLoader m_loader{QStringLiteral(ZOLTA_PLUGIN_FILE)};
};

namespace {

int calledSlot = -1;

template <int Slot> int recordSlot()
{
    calledSlot = Slot;
    return 0;
}

/// An object whose table of virtual functions has \a Size entries that note their own position.
template <class Interface, std::size_t Size> class RawObject
{
public:
    RawObject()
        : m_table(table(std::make_index_sequence<Size>()))
        , m_pointer(&m_table[2])
    {}
    Interface* get() { return reinterpret_cast<Interface*>(&m_pointer); }

private:
    // Before the functions stand the offset to the object's top and its type.
    template <std::size_t... Slot>
    static std::array<const void*, Size + 2> table(std::index_sequence<Slot...>)
    {
        return {nullptr, &typeid(Interface),
                reinterpret_cast<const void*>(&recordSlot<static_cast<int>(Slot)>)...};
    }

    std::array<const void*, Size + 2> m_table;
    const void* const* m_pointer;
};

template <class Result, class... Arguments>
Result callSlot(void* object, int slot, Arguments... arguments)
{
    const auto* table = *static_cast<void***>(object);
    return reinterpret_cast<Result (*)(void*, Arguments...)>(table[slot])(object, arguments...);
}

template <class Call> int slotOf(Call call)
{
    calledSlot = -1;
    call();
    return calledSlot;
}

/// How many virtual functions come before those of a class derived from QWidget.
int firstSlotAfterQWidget()
{
    struct Probe : QWidget
    {
        virtual void first() {}
    };
    const auto member = &Probe::first;
    std::ptrdiff_t offset = 0;
    std::memcpy(&offset, &member, sizeof offset);
    return static_cast<int>((offset - 1) / static_cast<std::ptrdiff_t>(sizeof(void*)));
}

} // namespace

void tst_SlotOrder::modelInfo()
{
    RawObject<IModelInfo, 16> object;
    IModelInfo* model = object.get();
    QCOMPARE(slotOf([&] { model->getChannelEntry(nullptr, nullptr, 0); }), 3);
    QCOMPARE(slotOf([&] { model->getChannelCount(); }), 4);
    QCOMPARE(slotOf([&] { model->findParameter(nullptr, nullptr); }), 5);
    QCOMPARE(slotOf([&] { model->getParameterAddress(nullptr, nullptr, 0); }), 6);
    QCOMPARE(slotOf([&] { model->findMeter(nullptr, nullptr); }), 8);
    QCOMPARE(slotOf([&] { model->getMeterRange(nullptr, nullptr, 0); }), 9);
}

void tst_SlotOrder::memAPI()
{
    RawObject<IMemAPI, 40> object;
    IMemAPI* memory = object.get();
    QCOMPARE(slotOf([&] { memory->getValue(0, 0, nullptr, 0); }), 4);
    QCOMPARE(slotOf([&] { memory->setValue(0, 0, 0, 0, 0, 1); }), 5);
    QCOMPARE(slotOf([&] { memory->getRange(0, 0, nullptr, nullptr); }), 11);
    QCOMPARE(slotOf([&] { memory->getDefault(0, 0, nullptr); }), 12);
    QCOMPARE(slotOf([&] { memory->valueToString(0, 0, 0, nullptr, 0); }), 19);
    QCOMPARE(slotOf([&] { memory->stringToValue(0, 0, nullptr, nullptr); }), 20);
    QCOMPARE(slotOf([&] { memory->registerObserver(0, 0, nullptr); }), 26);
    QCOMPARE(slotOf([&] { memory->unregisterObserver(0, 0, nullptr); }), 27);
    QCOMPARE(slotOf([&] { memory->queryMeterNotifier(nullptr); }), 30);
}

void tst_SlotOrder::meterNotifier()
{
    RawObject<IMeterNotifier, 8> object;
    IMeterNotifier* notifier = object.get();
    QCOMPARE(slotOf([&] { notifier->addMeterObserver(nullptr); }), 2);
    QCOMPARE(slotOf([&] { notifier->removeMeterObserver(nullptr); }), 4);
}

void tst_SlotOrder::effect()
{
    // Slots 0 and 1 are the destructor's two entries.
    TestHost host;
    void* effect = m_loader.instance()->qt_metacast("org.zolta.IVaskEffect");
    QVERIFY(effect);
    auto* editor = callSlot<QWidget*>(effect, 2, static_cast<QWidget*>(nullptr),
                                      static_cast<unsigned short>(5), host.model());
    QVERIFY(editor);
    QCOMPARE(QByteArray(editor->metaObject()->className()), QByteArray("ZoltaEditor"));
    delete editor;
}

void tst_SlotOrder::effectChFx()
{
    void* chFx = m_loader.instance()->qt_metacast("org.zolta.IVaskEffectChFx");
    QVERIFY(chFx);
    QCOMPARE(callSlot<int>(chFx, 0), 8);
}

void tst_SlotOrder::editor()
{
    using Settings = QMap<QString, QVariant>;
    TestHost host;
    auto* effect = qobject_cast<IVaskEffect*>(m_loader.instance());
    const std::unique_ptr<QWidget> widget(effect->create(nullptr, 0, host.model()));
    QWidget* editor = widget.get();
    const int first = firstSlotAfterQWidget();
    const QString zoom = QStringLiteral("GraphZoom");

    auto& uid = callSlot<Steinberg::FUID&>(editor, first + 0);
    QVERIFY(uid == Steinberg::FUID(0x56535464, 0x78704265, 0x7175616C, 0x697A6572));
    std::vector<Steinberg::FUID> uids(1);
    callSlot<void, std::vector<Steinberg::FUID>&>(editor, first + 1, uids);
    QCOMPARE(uids.size(), std::size_t(2));
    QVERIFY(uids[1] == uid);
    auto* component = callSlot<Steinberg::Vst::IComponent*>(editor, first + 2);
    QCOMPARE(component->getBusCount(0, 0), 3);
    callSlot<void>(editor, first + 3, host.memory());
    QVERIFY(host.observerCount("fx_rackfx_prm_1", 0) > 0);
    callSlot<void>(editor, first + 5, 6, 7);
    QVERIFY(host.observerCount("fx_rackfx_prm_1", 6) > 0);
    callSlot<void>(editor, first + 6, true);
    callSlot<void>(editor, first + 7, 96000);
    callSlot<void>(editor, first + 8, true);
    callSlot<void>(editor, first + 9, 1);
    callSlot<void>(editor, first + 10, 1);
    callSlot<void>(editor, first + 11, 2.0);
    QCOMPARE(editor->size(), QSize(1954, 1118));
    QCOMPARE(callSlot<Settings>(editor, first + 12), (Settings{{zoom, 3}}));
    const Settings settings{{zoom, 5}};
    callSlot<void, const Settings&>(editor, first + 13, settings);
    QCOMPARE(callSlot<Settings>(editor, first + 12), settings);
    QCOMPARE(callSlot<double>(editor, first + 14), 2.0);

    callSlot<void>(editor, first + 4, static_cast<IModelInfo*>(nullptr));
    callSlot<void>(editor, first + 5, 2, 3);
    QCOMPARE(host.observerCount("fx_rackfx_prm_1", 2), 0);
}

void tst_SlotOrder::prmObserver()
{
    RawObject<IPrmObserver, 4> object;
    IPrmObserver* observer = object.get();
    QCOMPARE(slotOf([&] { observer->Update(0, 0, 0, nullptr); }), 0);
    QCOMPARE(slotOf([&] { observer->UpdateProperty(0, 0, 0, 0, 0, false, nullptr); }), 1);
}

void tst_SlotOrder::meterObserver()
{
    RawObject<IMeterObserver, 4> object;
    IMeterObserver* observer = object.get();
    QCOMPARE(slotOf([&] { observer->notifyMeterLvlUpdated(nullptr, 0); }), 0);
    QCOMPARE(slotOf([&] { observer->notifyMeterDbUpdated(nullptr, 0); }), 1);
}

ZOLTA_TEST_MAIN(tst_SlotOrder)
#include "tst_SlotOrder.moc"
