// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "hosting/ChangeListener.h"
#include "hosting/GestureWatch.h"

#include <QCoreApplication>
#include <QString>
#include <QUndoStack>

#include <functional>
#include <vector>

class HostMemory;

/// Everything that the user changed in the mixer, to be undone and redone step by step.
///
/// A step is what one gesture of the user wrote: all of a drag, however many parameters it moves,
/// or a burst of the wheel or of stepping keys on one parameter. A gesture that ends where it began
/// leaves none. What the program does for the user in one go (loading a preset, pasting) is one
/// step by a Step, and what is no edit of the user's at all (restoring a session) is kept out by a
/// Pause. A step is named after its parameters, in the language of the moment. GUI thread only.
class EditHistory : private ChangeListener
{
    Q_DECLARE_TR_FUNCTIONS(EditHistory)

public:
    struct Change
    {
        unsigned short parameter;
        unsigned short ch;
        int before;
        int after;
    };
    /// Does a step's other consequences; \a forward is false to take them back.
    using Effect = std::function<void(bool forward)>;

    /// While one lives, all writes make up one step. One inside another adds to it.
    class Step
    {
    public:
        Step(EditHistory& history, const QString& text);
        ~Step();
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;

        /// Is done with the step from its redoing on; the first time is up to the caller.
        void setEffect(Effect effect);

    private:
        EditHistory& m_history;
        bool m_outermost;
        QString m_text;
        Effect m_effect;
    };

    /// While one lives, nothing is recorded.
    class Pause
    {
    public:
        explicit Pause(EditHistory& history)
            : m_history(history)
        {
            ++m_history.m_pauses;
        }
        ~Pause() { --m_history.m_pauses; }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        EditHistory& m_history;
    };

    static constexpr int maxSteps = 500;

    /// Listens to \a memory, which must outlive it.
    explicit EditHistory(HostMemory& memory);
    ~EditHistory();
    EditHistory(const EditHistory&) = delete;
    EditHistory& operator=(const EditHistory&) = delete;

    /// To be moved along only while no Step lives, whose changes it does not know yet.
    QUndoStack& stack() { return m_stack; }
    /// Whether a Step lives.
    bool isInStep() const { return m_collecting; }
    /// Whether the user holds a mouse button, or has just let go of it.
    bool isDragging() const { return m_gestures.kind() == GestureWatch::Mouse; }
    /// Removes all steps.
    void clear() { m_stack.clear(); }

    /// Writes the changes' values without recording them.
    void apply(const std::vector<Change>& changes, bool forward);

private:
    void changed(unsigned short parameter, unsigned short ch, int before, int after) override;
    void push(const std::vector<Change>& changes, const QString& text, const Effect& effect);

    HostMemory& m_memory;
    GestureWatch m_gestures;
    QUndoStack m_stack;
    std::vector<Change> m_collected; // of the Step that lives
    bool m_collecting = false;
    int m_pauses = 0;
};

/// What a parameter is called in the user's language.
QString parameterTitle(unsigned short parameter);
