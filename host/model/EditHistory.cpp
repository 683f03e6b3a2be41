// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/model/EditHistory.h"

#include "hosting/HostMemory.h"

#include <QStringList>
#include <QUndoCommand>

#include <algorithm>

namespace {

using Change = EditHistory::Change;

constexpr int mergingId = 1;
constexpr std::size_t maxNames = 2;

bool isSamePlace(const Change& a, const Change& b)
{
    return a.parameter == b.parameter && a.ch == b.ch;
}

// One change a parameter: from its first value to its last.
void add(std::vector<Change>* changes, const Change& next)
{
    const auto known = std::find_if(changes->begin(), changes->end(),
                                    [&](const Change& c) { return isSamePlace(c, next); });
    if (known == changes->end())
        changes->push_back(next);
    else
        known->after = next.after;
}

void dropUnchanged(std::vector<Change>* changes)
{
    std::erase_if(*changes, [](const Change& c) { return c.before == c.after; });
}

QString namesOf(const std::vector<Change>& changes)
{
    QStringList names;
    for (const Change& change : changes)
        names << parameterTitle(change.parameter);
    names.removeDuplicates();
    if (names.size() > static_cast<qsizetype>(maxNames))
        return EditHistory::tr("%1 parameters").arg(names.size());
    return names.join(QLatin1String(", "));
}

class Command : public QUndoCommand
{
public:
    Command(EditHistory& history, std::vector<Change> changes, const QString& text,
            EditHistory::Effect effect)
        : QUndoCommand(text.isEmpty() ? namesOf(changes) : text)
        , m_history(history)
        , m_changes(std::move(changes))
        , m_effect(std::move(effect))
    {}

    // Of one gesture; wheel and keys change one parameter only.
    void setGesture(quint64 number, GestureWatch::Kind kind)
    {
        m_gesture = number;
        m_kind = kind;
    }

    int id() const override { return m_kind == GestureWatch::None ? -1 : mergingId; }

    bool mergeWith(const QUndoCommand* other) override
    {
        const auto* next = static_cast<const Command*>(other);
        if (next->m_gesture != m_gesture || !suits(*next))
            return false;
        for (const Change& change : next->m_changes)
            add(&m_changes, change);
        std::vector<Change> left = m_changes;
        dropUnchanged(&left);
        setObsolete(left.empty());
        setText(namesOf(left));
        return true;
    }

    void undo() override { run(false); }

    void redo() override
    {
        if (m_done)
            run(true);
        m_done = true;
    }

private:
    bool suits(const Command& next) const
    {
        return m_kind == GestureWatch::Mouse ||
               isSamePlace(m_changes.front(), next.m_changes.front());
    }

    void run(bool forward)
    {
        m_history.apply(m_changes, forward);
        if (m_effect)
            m_effect(forward);
    }

    EditHistory& m_history;
    std::vector<Change> m_changes;
    EditHistory::Effect m_effect;
    quint64 m_gesture = 0;
    GestureWatch::Kind m_kind = GestureWatch::None;
    bool m_done = false; // pushed after it was done
};

} // namespace

EditHistory::Step::Step(EditHistory& history, const QString& text)
    : m_history(history)
    , m_outermost(!history.m_collecting)
    , m_text(text)
{
    m_history.m_collecting = true;
}

EditHistory::Step::~Step()
{
    if (!m_outermost)
        return;
    m_history.m_collecting = false;
    std::vector<Change> changes;
    changes.swap(m_history.m_collected);
    dropUnchanged(&changes);
    if (!changes.empty() || m_effect)
        m_history.push(changes, m_text, m_effect);
}

void EditHistory::Step::setEffect(Effect effect) { m_effect = std::move(effect); }

EditHistory::EditHistory(HostMemory& memory)
    : m_memory(memory)
{
    m_stack.setUndoLimit(maxSteps);
    m_memory.addChangeListener(this);
}

EditHistory::~EditHistory() { m_memory.removeChangeListener(this); }

void EditHistory::apply(const std::vector<Change>& changes, bool forward)
{
    const Pause pause(*this);
    for (const Change& change : changes)
        m_memory.setValue(change.parameter, change.ch, forward ? change.after : change.before, 0, 0,
                          1);
}

void EditHistory::changed(unsigned short parameter, unsigned short ch, int before, int after)
{
    const Change change{parameter, ch, before, after};
    if (m_pauses == 0 && m_collecting)
        add(&m_collected, change);
    else if (m_pauses == 0)
        push({change}, QString(), {});
}

void EditHistory::push(const std::vector<Change>& changes, const QString& text,
                       const Effect& effect)
{
    if (m_pauses > 0)
        return;
    auto* command = new Command(*this, changes, text, effect);
    if (text.isEmpty())
        command->setGesture(m_gestures.number(), m_gestures.kind());
    m_stack.push(command);
}

QString parameterTitle(unsigned short parameter)
{
    const char* title = nullptr;
    if (const auto master = findMasterParameter(parameter))
        title = masterTable[static_cast<std::size_t>(*master)].title;
    else if (const auto strip = findStripParameter(parameter))
        title = stripEntry(*strip).title;
    else if (const std::size_t index = findParameterById(parameter); index < parameterCount)
        title = parameterTable[index].title;
    return title ? QCoreApplication::translate("Parameter", title) : QString();
}
