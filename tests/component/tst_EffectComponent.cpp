// SPDX-License-Identifier: GPL-3.0-or-later
// What every effect's component does, with a component of the test's own.
#include "component/ZoltaComponent.h"
#include "tests/support/TestHost.h"
#include "tests/support/TestObject.h"
#include "tests/support/TestStream.h"

#include <functional>
#include <thread>
#include <type_traits>

using namespace Steinberg;
using Operation = TestHost::Operation;

namespace {

constexpr unsigned char Version[4] = {0x00, 0x80, 0xFF, 0x7A};

class ListComponent final : public EffectComponent
{
public:
    const unsigned char* getDataVersion() const override { return Version; }
    std::list<const char*> getParameterList(const unsigned char* dataVersion) const override
    {
        ++listsTaken;
        versionSeen = dataVersion == nullptr
                          ? QByteArray("null")
                          : QByteArray(reinterpret_cast<const char*>(dataVersion), 4);
        return names;
    }

    std::list<const char*> names;
    mutable int listsTaken = 0;
    mutable QByteArray versionSeen;
};

// Without data of its own, as release() demands.
class PlainComponent final : public EffectComponent
{
public:
    const unsigned char* getDataVersion() const override { return Version; }
    std::list<const char*> getParameterList(const unsigned char*) const override { return {}; }
};

// Does something as soon as a value is restored.
struct Observer final : IPrmObserver
{
    explicit Observer(std::function<void()> action)
        : m_action(std::move(action))
    {}
    int Update(unsigned short, unsigned short, int, const char*) override
    {
        m_action();
        return 0;
    }
    int UpdateProperty(unsigned short, unsigned short, int, int, int, bool, const char*) override
    {
        return 0;
    }

private:
    std::function<void()> m_action;
};

} // namespace

class tst_EffectComponent : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void queryInterfaceKnowsNothing_data();
    void queryInterfaceKnowsNothing();
    void referencesAreCounted();
    void lastReleaseFreesTheObject();
    void referencesAreCountedAcrossThreads();
    void unusedOperationsAreNotImplemented();
    void busCountIsThree();
    void slotsAreInTheInterfacesOrder();
    void hasNoVirtualDestructor();
    void listIsAskedWithTheVersion();
    void emptyListSavesTheVersionOnly();
    void unknownNullAndRepeatedNames();
    void observerMayDetachDuringRestore();
    void observerMayFreeDuringRestore_data();
    void observerMayFreeDuringRestore();
    void observerMayRestoreAndFreeDuringRestore();
};

void tst_EffectComponent::queryInterfaceKnowsNothing_data()
{
    QTest::addColumn<QByteArray>("iid");
    const auto row = [](const char* title, const FUID& id) {
        TUID iid;
        id.toTUID(iid);
        QTest::newRow(title) << QByteArray(iid, sizeof iid);
    };
    row("FUnknown", FUnknown::iid);
    row("IPluginBase", IPluginBase::iid);
    row("IComponent", Vst::IComponent::iid);
    row("IBStream", IBStream::iid);
    row("all zero", FUID());
}

void tst_EffectComponent::queryInterfaceKnowsNothing()
{
    QFETCH(QByteArray, iid);
    ListComponent component;
    Vst::IComponent* interface = &component;
    void* object = &component;
    QCOMPARE(interface->queryInterface(iid.constData(), &object), -1);
    QCOMPARE(object, nullptr);
    QCOMPARE(interface->addRef(), 2u);
}

void tst_EffectComponent::referencesAreCounted()
{
    ListComponent component;
    Vst::IComponent* interface = &component;
    QCOMPARE(interface->addRef(), 2u);
    QCOMPARE(interface->addRef(), 3u);
    QCOMPARE(interface->release(), 2u);
    QCOMPARE(interface->release(), 1u);
}

void tst_EffectComponent::lastReleaseFreesTheObject()
{
    // The address sanitizer's leak check sees the object if it is not freed.
    Vst::IComponent* interface = new PlainComponent;
    QCOMPARE(interface->addRef(), 2u);
    QCOMPARE(interface->release(), 1u);
    QCOMPARE(interface->release(), 0u);
}

void tst_EffectComponent::referencesAreCountedAcrossThreads()
{
    ListComponent component;
    const auto takeAndGive = [&component] {
        for (int i = 0; i < 20000; ++i) {
            component.addRef();
            component.addRef();
            component.release();
        }
    };
    std::thread first(takeAndGive), second(takeAndGive);
    first.join();
    second.join();
    QCOMPARE(component.addRef(), 40002u);
}

void tst_EffectComponent::unusedOperationsAreNotImplemented()
{
    ListComponent component;
    TestHost host;
    component.setModelInfo(host.model());
    component.setMemAPI(host.memory());
    Vst::IComponent* interface = &component;
    TUID id = {};
    Vst::BusInfo bus = {};
    Vst::RoutingInfo in = {}, out = {};
    QCOMPARE(interface->initialize(nullptr), 3);
    QCOMPARE(interface->terminate(), 3);
    QCOMPARE(interface->getControllerClassId(id), 3);
    QCOMPARE(interface->setIoMode(Vst::kAdvanced), 3);
    QCOMPARE(interface->getBusInfo(Vst::kAudio, Vst::kInput, 0, bus), 3);
    QCOMPARE(interface->getRoutingInfo(in, out), 3);
    QCOMPARE(interface->activateBus(Vst::kAudio, Vst::kInput, 0, true), 3);
    QCOMPARE(interface->setActive(true), 3);
    QCOMPARE(QByteArray(id, sizeof id), QByteArray(16, '\0'));
    QCOMPARE(host.callCount(), 0);
}

void tst_EffectComponent::busCountIsThree()
{
    ListComponent component;
    Vst::IComponent* interface = &component;
    QCOMPARE(interface->getBusCount(Vst::kAudio, Vst::kInput), 3);
    QCOMPARE(interface->getBusCount(Vst::kEvent, Vst::kOutput), 3);
}

void tst_EffectComponent::slotsAreInTheInterfacesOrder()
{
    ListComponent component;
    component.names = {"a", nullptr};
    EffectComponent* self = &component;
    QCOMPARE(static_cast<void*>(self), static_cast<void*>(static_cast<FUnknown*>(self)));
    void* const* slots = *reinterpret_cast<void* const**>(self);

    const auto addRef = reinterpret_cast<uint32 (*)(EffectComponent*)>(slots[1]);
    const auto release = reinterpret_cast<uint32 (*)(EffectComponent*)>(slots[2]);
    const auto busCount = reinterpret_cast<int32 (*)(EffectComponent*, int, int)>(slots[7]);
    const auto setState = reinterpret_cast<tresult (*)(EffectComponent*, IBStream*)>(slots[12]);
    const auto getState = reinterpret_cast<tresult (*)(EffectComponent*, IBStream*)>(slots[13]);
    const auto version =
        reinterpret_cast<const unsigned char* (*)(const EffectComponent*)>(slots[14]);
    const auto list =
        reinterpret_cast<std::list<const char*> (*)(const EffectComponent*, const unsigned char*)>(
            slots[15]);

    QCOMPARE(addRef(self), 2u);
    QCOMPARE(release(self), 1u);
    QCOMPARE(busCount(self, 0, 0), 3);
    TestStream in("12345678"), out;
    setState(self, &in);
    QCOMPARE(in.position(), 4);
    QVERIFY(out.bytes().isEmpty());
    getState(self, &out);
    QCOMPARE(out.bytes(), QByteArray("\x00\x80\xFF\x7A", 4));
    QCOMPARE(version(self), Version);
    QCOMPARE(list(self, Version), component.names);
    QCOMPARE(component.versionSeen, QByteArray("\x00\x80\xFF\x7A", 4));
}

void tst_EffectComponent::hasNoVirtualDestructor()
{
    QVERIFY(!std::has_virtual_destructor_v<EffectComponent>);
    QVERIFY(!std::is_destructible_v<EffectComponent>);
}

void tst_EffectComponent::listIsAskedWithTheVersion()
{
    ListComponent component;
    TestHost host;
    component.setModelInfo(host.model());
    component.setMemAPI(host.memory());
    TestStream in("9\001xz"), out;
    QCOMPARE(component.setState(&in), kResultOk);
    QCOMPARE(component.versionSeen, QByteArray("9\001xz"));
    QCOMPARE(component.getState(&out), kResultOk);
    QCOMPARE(component.versionSeen, QByteArray("null"));
    QCOMPARE(component.listsTaken, 2);
}

void tst_EffectComponent::emptyListSavesTheVersionOnly()
{
    ListComponent component;
    TestHost host;
    component.setModelInfo(host.model());
    component.setMemAPI(host.memory());
    TestStream out;
    QCOMPARE(component.getState(&out), kResultOk);
    QCOMPARE(out.bytes().size(), 4);
    QCOMPARE(host.callCount(), 0);
}

void tst_EffectComponent::unknownNullAndRepeatedNames()
{
    ListComponent component;
    component.names = {nullptr, "fx_rackfx_prm_3", "nothing", "", "fx_rackfx_prm_3"};
    TestHost host;
    component.setModelInfo(host.model());
    component.setMemAPI(host.memory());
    host.set("fx_rackfx_prm_3", 0, 100);
    TestStream out;
    QCOMPARE(component.getState(&out), kResultOk);
    QCOMPARE(out.bytes().mid(4).toHex(), QByteArray("00000000"
                                                    "3f400000"
                                                    "00000000"
                                                    "00000000"
                                                    "3f400000"));
    TestStream in(QByteArray("2620") + QByteArray::fromHex("3f800000 3e800000 3f800000 3f800000"
                                                           "3f000000"));
    QCOMPARE(component.setState(&in), kResultOk);
    QCOMPARE(host.writes(), (std::vector<TestHost::Write>{{"fx_rackfx_prm_3", 0, -100},
                                                          {"fx_rackfx_prm_3", 0, 0}}));
}

void tst_EffectComponent::observerMayDetachDuringRestore()
{
    ListComponent component;
    component.names = {"fx_rackfx_prm_3", "fx_rackfx_prm_2"};
    TestHost host;
    component.setModelInfo(host.model());
    component.setMemAPI(host.memory());
    Observer detacher([&component] { component.setMemAPI(nullptr); });
    host.memory()->registerObserver(host.id("fx_rackfx_prm_3"), 0, &detacher);
    TestStream in(QByteArray(12, '\0'));
    QCOMPARE(component.setState(&in), kResultOk);
    QCOMPARE(in.position(), 12);
    QCOMPARE(host.writes(), (std::vector<TestHost::Write>{{"fx_rackfx_prm_3", 0, -200}}));
    QCOMPARE(host.count(Operation::FindParameter), 1);
}

void tst_EffectComponent::observerMayFreeDuringRestore_data()
{
    QTest::addColumn<bool>("released");
    QTest::newRow("deleted") << false;
    QTest::newRow("released") << true;
}

void tst_EffectComponent::observerMayFreeDuringRestore()
{
    QFETCH(bool, released);
    auto* component = new ZoltaComponent;
    TestHost host;
    component->setModelInfo(host.model());
    component->setMemAPI(host.memory());
    Observer observer([=] {
        if (released)
            component->release();
        else
            delete component;
    });
    // The third name of the state.
    host.memory()->registerObserver(host.id("fx_rackfx_prm_2"), 0, &observer);
    TestStream in(QByteArray(116, '\0'));
    QCOMPARE(component->setState(&in), kResultFalse);
    QCOMPARE(in.position(), 16);
    QCOMPARE(host.writes().size(), std::size_t(3));
    QCOMPARE(host.count(Operation::FindParameter), 3);
}

void tst_EffectComponent::observerMayRestoreAndFreeDuringRestore()
{
    auto* component = new ZoltaComponent;
    TestHost host;
    component->setModelInfo(host.model());
    component->setMemAPI(host.memory());
    TestStream outer(QByteArray(116, '\0')), inner(QByteArray(116, '\0'));
    tresult innerResult = kResultOk;
    int updates = 0;
    Observer observer([&] {
        if (++updates == 1)
            innerResult = component->setState(&inner);
        else
            delete component;
    });
    host.memory()->registerObserver(host.id("fx_rackfx_prm_4"), 0, &observer);
    QCOMPARE(component->setState(&outer), kResultFalse);
    QCOMPARE(innerResult, kResultFalse);
    QCOMPARE(outer.position(), 8);
    QCOMPARE(inner.position(), 8);
    QCOMPARE(host.writes().size(), std::size_t(2));
}

QTEST_APPLESS_MAIN(tst_EffectComponent)
#include "tst_EffectComponent.moc"
