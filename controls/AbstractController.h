// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/Lifetime.h"
#include "interfaces/IPrmObserver.h"
#include "widgets/Export.h"

#include <QString>

class IMemAPI;

namespace CommonController_MemAPI {

/// What every control of the library is besides a widget: one integer value with a range, a default
/// and a display text. Bound, it mirrors one parameter of the host's memory: every read asks the
/// host, every write goes to the host, and the host's notification refreshes the control. Unbound,
/// it keeps all of that in its own fields, so that the control works alone.
///
/// A control is bound while it has a memory and a channel that is not negative as a signed 16-bit
/// number; this is looked up at every access. The memory is the host's and must outlive the
/// binding. A host call that fails reads as 0 or as an empty text, and a failed write is dropped.
///
/// A control derives from a QWidget first and from this second. It declares, in this order,
/// setScale(), setMemAPIValue(), valueChanged() and its private slot valueChangedRequest(), which
/// call storeScale() and bind() below. Its destructor ends its gesture and then calls unbind(), so
/// that the host can no longer notify a control that is half gone.
///
/// Whatever is called from here may destroy the control: the host's writes and observers, slots,
/// overridden virtual functions. Nothing here touches the control after that; a control guards its
/// own calls with lifetime().
///
/// The order of the virtual functions is a binary contract.
class ZOLTA_EXPORT AbstractController : public IPrmObserver
{
public:
    /// The smallest factor that setScale() accepts.
    static constexpr double MinimumScale = 0.5;

    AbstractController() = default;
    AbstractController(const AbstractController&) = delete;
    AbstractController& operator=(const AbstractController&) = delete;

    /// Both refresh the control through valueChangedRequest() and return 0. The arguments are not
    /// looked at: a control is told of nothing but its own parameter.
    int Update(unsigned short parameter, unsigned short ch, int value, const char* text) override;
    int UpdateProperty(unsigned short parameter, unsigned short ch, int, int, int, bool,
                       const char* text) override;

    virtual ~AbstractController();

    /// Zooms what the control paints by \a scale, at least MinimumScale.
    virtual void setScale(double scale) = 0;
    /// Binds the control to element \a index of (\a parameter, \a ch) of \a memAPI, which stays the
    /// host's; a null memory or a negative channel unbinds it. A gesture in progress is ended
    /// first. Does nothing when all four are as before.
    virtual void setMemAPIValue(IMemAPI* memAPI, unsigned short parameter, unsigned short ch,
                                unsigned short index) = 0;

protected:
    /// Refreshes the control: valueChanged(), then the control's signal valueChanged(int).
    virtual void valueChangedRequest() = 0;
    /// What a control does to show a new value; nothing here.
    virtual void valueChanged();
    /// Called before and after a user's gesture writes values, always in pairs; nothing here. A
    /// class that overrides them calls closeEdits() in its destructor.
    virtual void beginEdit();
    /// Closes what beginEdit() opened.
    virtual void endEdit();

public:
    /// Whether there is a memory and a channel.
    bool isBound() const;
    /// The address last given to setMemAPIValue(), bound or not.
    IMemAPI* memAPI() const { return m_memAPI; }
    /// The parameter's id, likewise.
    unsigned short parameter() const { return m_parameter; }
    /// The channel, likewise.
    unsigned short ch() const { return m_ch; }
    /// The element, likewise.
    unsigned short index() const { return m_index; }
    /// The factor last given to setScale().
    double scale() const { return m_scale; }
    /// What guards on the stack ask whether the control is still there.
    Lifetime& lifetime() const { return m_lifetime; }

    /// The host's value, or the control's own.
    int value() const;
    /// Brings \a value into the range and stores it. The refresh of a bound control is the host's
    /// notification; an unbound one is refreshed when the value changes.
    void setValue(int value);
    /// Both limits, for which a bound control asks the host once.
    struct Range
    {
        int minimum = 0; ///< the lowest value
        int maximum = 0; ///< the highest value
    };
    /// The limits of the value.
    Range range() const;
    /// The lower limit alone.
    int minimumValue() const;
    /// The limits take the other limit, the default and the value along where they pass them.
    /// Ignored as soon as there is a memory, bound or not.
    void setMinimumValue(int minimum);
    /// The upper limit alone.
    int maximumValue() const;
    void setMaximumValue(int maximum);
    /// The value that a reset gives.
    int defaultValue() const;
    /// Brings \a value into the range. Ignored while bound.
    void setDefaultValue(int value);

    /// The position of the value or of the default in the range, 0 to 1. NaN or infinite
    /// where the range has one value only.
    float normalized() const;
    /// The same for the default.
    float defaultNormalized() const;
    /// Sets the value at \a normalized, which is brought into 0 to 1 first (NaN counts as 0).
    /// Bound, the nearest value; unbound, the range is cut into as many equal bins as it has
    /// values. The two differ on purpose.
    void setNormalized(float normalized);
    /// Ignored while bound.
    void setDefaultNormalized(float normalized);

    /// The display text: the host's (at most 256 bytes, in the local 8-bit encoding), or the one
    /// last set.
    QString string() const;
    /// Bound, has the host parse \a string and writes the result; returns the host's status,
    /// negative on failure. Unbound, keeps the text, takes the value from it if it is a decimal
    /// integer, refreshes the control and returns 0; does nothing for the same text.
    int setString(const QString& string);

    /// One whole edit: beginEdit(), the change, endEdit().
    void editValue(int value);
    /// The same with setNormalized().
    void editNormalized(float normalized);
    /// The same with setString(), whose result it returns.
    int editString(const QString& string);
    /// The same with the default.
    void editToDefault();

    /// What the numbers of string() are counted in, "Hz", for those who hear the text; empty for
    /// none.
    const QString& unit() const { return m_unit; }
    void setUnit(const QString& unit) { m_unit = unit; }

protected:
    /// Whether memory and address are the ones that bind() was given.
    bool isBoundTo(const IMemAPI* memAPI, unsigned short parameter, unsigned short ch,
                   unsigned short index) const;
    /// What setMemAPIValue() of every control does. A control that has more than open edits to end
    /// (a drag) ends it before, unless isBoundTo() says that nothing changes.
    void bind(IMemAPI* memAPI, unsigned short parameter, unsigned short ch, unsigned short index);
    /// Takes the observer back and forgets the memory, without a refresh.
    void unbind();
    /// What setScale() of every control does, but for the repaint; whether the scale changed.
    bool storeScale(double scale);

    /// beginEdit() and endEdit(), counted: closeEdit() does nothing when no edit is open, because
    /// the control was rebound, disabled or hidden in between and closeEdits() ended them all.
    void openEdit();
    /// Closes one edit, if any is open.
    void closeEdit();
    /// Closes all edits that are open.
    void closeEdits();
    /// Whether an edit is open.
    bool isEditing() const { return m_openEdits > 0; }
    /// One whole edit around \a change.
    template <class Change> void withEdit(Change change)
    {
        const Lifetime::Guard alive(m_lifetime);
        openEdit();
        if (alive)
            change();
        if (alive)
            closeEdit();
    }

private:
    friend class EditGesture;

    int write(int value);

    mutable Lifetime m_lifetime;
    int m_value = 0;
    int m_minimum = 0;
    int m_maximum = 100;
    int m_default = 0;
    QString m_string;
    double m_scale = 1.0;
    IMemAPI* m_memAPI = nullptr;
    unsigned short m_parameter = 0;
    unsigned short m_ch = 0;
    unsigned short m_index = 0;
    int m_openEdits = 0;
    QString m_unit;
};

} // namespace CommonController_MemAPI
