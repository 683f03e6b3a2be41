// SPDX-License-Identifier: GPL-3.0-or-later
// What every effect's component does, with a component of the test's own.
#include "component/ZoltaComponent.h"
#include "tests/support/TestHost.h"
#include "tests/support/TestObject.h"
#include "tests/support/TestStream.h"

#include <functional>
#include <thread>
#include <type_traits>
#include <utility>

using namespace Steinberg;
using Operation = TestHost::Operation;
using Writes = std::vector<TestHost::Write>;

namespace {

constexpr unsigned char Version[4] = {0x00, 0x80, 0xFF, 0x7A};
const QByteArray VersionBytes("\x00\x80\xFF\x7A", 4);

class ListComponent final : public EffectComponent
{
public:
    const unsigned char* getDataVersion() const override { return Version; }
    std::list<const char*> getParameterList(const unsigned char* dataVersion) const override
    {
        const auto* bytes = reinterpret_cast<const char*>(dataVersion);
        versionsSeen.append(bytes ? QByteArray(bytes, 4) : QByteArray("null"));
        return names;
    }

    std::list<const char*> names;
    mutable QByteArrayList versionsSeen;
};

void bind(EffectComponent& component, const TestHost& host)
{
    component.setModelInfo(host.model());
    component.setMemAPI(host.memory());
}

void observe(const TestHost& host, const char* name, IPrmObserver& observer)
{
    host.memory()->registerObserver(host.id(name), 0, &observer);
}

/// Does something as soon as a value is restored.
struct Observer final : IPrmObserver
{
    explicit Observer(std::function<void()> whenRestored)
        : action(std::move(whenRestored))
    {}
    int Update(unsigned short, unsigned short, int, const char*) override
    {
        action();
        return 0;
    }
    int UpdateProperty(unsigned short, unsigned short, int, int, int, bool, const char*) override
    {
        return 0;
    }

    std::function<void()> action;
};

} // namespace

class tst_EffectComponent : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void queryInterfaceKnowsNothing();
    void lastReleaseOrDeleteFreesTheObject();
    void referencesAreCountedAcrossThreads();
    void unusedOperationsAreNotImplemented();
    void slotsAreInTheInterfacesOrder();
    void hasNoVirtualDestructor();
    void listIsAskedWithTheVersion();
    void unknownNullAndRepeatedNames();
    void observerMayDetachDuringRestore();
    void observerMayFreeDuringRestore_data();
    void observerMayFreeDuringRestore();
    void observerMayRestoreAndFreeDuringRestore();
    void observerMayFreeAfterAnInnerRestore();
};

void tst_EffectComponent::queryInterfaceKnowsNothing()
{
    ListComponent component;
    Vst::IComponent* interface = &component;
    for (const FUID& id : {FUnknown::iid, IPluginBase::iid, Vst::IComponent::iid, FUID()}) {
        void* object = &component;
        QCOMPARE(interface->queryInterface(id, &object), -1);
        QCOMPARE(object, nullptr);
    }
    QCOMPARE(interface->addRef(), 2u);
}

// The address sanitizer sees an object that is not freed, or freed in the wrong way.
void tst_EffectComponent::lastReleaseOrDeleteFreesTheObject()
{
    Vst::IComponent* released = new ZoltaComponent;
    QCOMPARE(released->addRef(), 2u);
    QCOMPARE(released->addRef(), 3u);
    for (const uint32 left : {2u, 1u, 0u})
        QCOMPARE(released->release(), left);
    auto* deleted = new ZoltaComponent;
    QCOMPARE(deleted->addRef(), 2u);
    delete deleted;
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
    ZoltaComponent component;
    TestHost host;
    bind(component, host);
    Vst::IComponent* interface = &component;
    TUID id = {};
    Vst::BusInfo bus = {};
    Vst::RoutingInfo in = {}, out = {};
    QCOMPARE(interface->initialize(nullptr), 3);
    QCOMPARE(interface->terminate(), 3);
    QCOMPARE(interface->getControllerClassId(id), 3);
    QCOMPARE(interface->setIoMode(Vst::kAdvanced), 3);
    QCOMPARE(interface->getBusCount(Vst::kAudio, Vst::kInput), 3);
    QCOMPARE(interface->getBusCount(Vst::kEvent, Vst::kOutput), 3);
    QCOMPARE(interface->getBusInfo(Vst::kAudio, Vst::kInput, 0, bus), 3);
    QCOMPARE(interface->getRoutingInfo(in, out), 3);
    QCOMPARE(interface->activateBus(Vst::kAudio, Vst::kInput, 0, true), 3);
    QCOMPARE(interface->setActive(true), 3);
    QCOMPARE(QByteArray(id, sizeof id), QByteArray(16, '\0'));
    QCOMPARE(host.callCount(), 0);
}

void tst_EffectComponent::slotsAreInTheInterfacesOrder()
{
    using State = tresult (*)(EffectComponent*, IBStream*);
    using Names = std::list<const char*>;
    ListComponent component;
    component.names = {"a", nullptr};
    EffectComponent* self = &component;
    QCOMPARE(static_cast<void*>(self), static_cast<void*>(static_cast<FUnknown*>(self)));
    void* const* slots = *reinterpret_cast<void* const**>(self);

    const auto addRef = reinterpret_cast<uint32 (*)(EffectComponent*)>(slots[1]);
    const auto release = reinterpret_cast<uint32 (*)(EffectComponent*)>(slots[2]);
    const auto busCount = reinterpret_cast<int32 (*)(EffectComponent*, int, int)>(slots[7]);
    const auto version = reinterpret_cast<const void* (*)(const EffectComponent*)>(slots[14]);
    const auto list = reinterpret_cast<Names (*)(const EffectComponent*, const void*)>(slots[15]);

    QCOMPARE(addRef(self), 2u);
    QCOMPARE(release(self), 1u);
    QCOMPARE(busCount(self, 0, 0), 3);
    TestStream in("12345678"), out;
    reinterpret_cast<State>(slots[12])(self, &in);
    QCOMPARE(in.position(), 4);
    reinterpret_cast<State>(slots[13])(self, &out);
    QCOMPARE(out.bytes(), VersionBytes);
    QCOMPARE(version(self), static_cast<const void*>(Version));
    QCOMPARE(list(self, Version), component.names);
    QCOMPARE(component.versionsSeen, QByteArrayList{VersionBytes});
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
    bind(component, host);
    TestStream in("9\001xz"), out;
    QCOMPARE(component.setState(&in), kResultOk);
    QCOMPARE(component.getState(&out), kResultOk);
    QCOMPARE(component.versionsSeen, QByteArrayList({"9\001xz", "null"}));
    QCOMPARE(out.bytes(), VersionBytes);
    QCOMPARE(host.callCount(), 0);
}

void tst_EffectComponent::unknownNullAndRepeatedNames()
{
    ListComponent component;
    TestHost host;
    bind(component, host);
    component.names = {nullptr, "fx_rackfx_prm_3", "nothing", "", "fx_rackfx_prm_3"};
    host.set("fx_rackfx_prm_3", 0, 100);
    TestStream out;
    QCOMPARE(component.getState(&out), kResultOk);
    QCOMPARE(out.bytes().mid(4),
             QByteArray::fromHex("00000000 3f400000 00000000 00000000 3f400000"));
    TestStream in("2620" + QByteArray::fromHex("3f800000 3e800000 3f800000 3f800000 3f000000"));
    QCOMPARE(component.setState(&in), kResultOk);
    QCOMPARE(host.writes(), (Writes{{"fx_rackfx_prm_3", 0, -100}, {"fx_rackfx_prm_3", 0, 0}}));
}

void tst_EffectComponent::observerMayDetachDuringRestore()
{
    ListComponent component;
    TestHost host;
    bind(component, host);
    component.names = {"fx_rackfx_prm_3", "fx_rackfx_prm_2"};
    Observer detacher([&component] { component.setMemAPI(nullptr); });
    observe(host, "fx_rackfx_prm_3", detacher);
    TestStream in(QByteArray(12, '\0'));
    QCOMPARE(component.setState(&in), kResultOk);
    QCOMPARE(in.position(), 12);
    QCOMPARE(host.writes(), (Writes{{"fx_rackfx_prm_3", 0, -200}}));
    QCOMPARE(host.count(Operation::FindParameter), 1);
}

void tst_EffectComponent::observerMayFreeDuringRestore_data()
{
    QTest::addColumn<bool>("released");
    QTest::newRow("deleted") << false;
    QTest::newRow("released") << true;
}

// The parameter is the third of the state.
void tst_EffectComponent::observerMayFreeDuringRestore()
{
    QFETCH(bool, released);
    auto* component = new ZoltaComponent;
    TestHost host;
    bind(*component, host);
    Observer observer([=] {
        if (released)
            component->release();
        else
            delete component;
    });
    observe(host, "fx_rackfx_prm_2", observer);
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
    bind(*component, host);
    TestStream outer(QByteArray(116, '\0')), inner(QByteArray(116, '\0'));
    tresult innerResult = kResultOk;
    int updates = 0;
    Observer observer([&] {
        if (++updates == 1)
            innerResult = component->setState(&inner);
        else
            delete component;
    });
    observe(host, "fx_rackfx_prm_4", observer);
    QCOMPARE(component->setState(&outer), kResultFalse);
    QCOMPARE(innerResult, kResultFalse);
    QCOMPARE(outer.position(), 8);
    QCOMPARE(inner.position(), 8);
    QCOMPARE(host.writes().size(), std::size_t(2));
}

// The second parameter is told by the inner restore first.
void tst_EffectComponent::observerMayFreeAfterAnInnerRestore()
{
    auto* component = new ZoltaComponent;
    TestHost host;
    bind(*component, host);
    TestStream outer(QByteArray(116, '\0')), inner(QByteArray(116, '\0'));
    bool isRestoring = false;
    int updates = 0;
    Observer restorer([&] {
        if (!std::exchange(isRestoring, true))
            component->setState(&inner);
    });
    Observer deleter([&] {
        if (++updates == 2)
            delete component;
    });
    observe(host, "fx_rackfx_prm_4", restorer);
    observe(host, "fx_rackfx_prm_3", deleter);
    QCOMPARE(component->setState(&outer), kResultFalse);
    QCOMPARE(inner.position(), 116);
    QCOMPARE(outer.position(), 12);
}

QTEST_APPLESS_MAIN(tst_EffectComponent)
#include "tst_EffectComponent.moc"
