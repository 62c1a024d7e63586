#pragma once
#include <tarnwell/constants.h>
#include <tarnwell/global.h>

#include <QLocale>
#include <QVariant>

#include <optional>

namespace Tarnwell {

// The number rules of one number box: its data type with the type's limits, Minimum, Maximum
// and Increment, and every test and conversion a value goes through on its way in or out. A
// plain value class, no widget: the box asks it and assigns what it answers.
//
// Texts are read in the box's locale. Minimum, Maximum and Increment are held converted to the
// type; the type's limits are the published figures of NumberType. Property checks throw
// Tarnwell::Error: 13 for a value that is not a number, 6 for one outside the type's limits.
class NumberRules
{
public:
    // Rules for a new box of `dataType`: Minimum and Maximum the type's limits, Increment 1.
    explicit NumberRules(int dataType = twCurrency, const QLocale &locale = QLocale());

    int dataType() const { return m_dataType; }
    // A new type: Minimum and Maximum become its limits and Increment 1. Any number is taken;
    // one outside the constants holds nothing (limits and conversions Empty).
    void setDataType(int dataType);

    const QVariant &minimum() const { return m_minimum; }
    const QVariant &maximum() const { return m_maximum; }
    const QVariant &increment() const { return m_increment; }
    QVariant lowerLimit() const;
    QVariant upperLimit() const;

    // The value in the type (Empty when it does not convert).
    QVariant convert(const QVariant &value) const;
    // Within the type's limits / within Minimum..Maximum, bounds included.
    bool isWithinLimits(const QVariant &value) const;
    bool isWithinRange(const QVariant &value) const;
    // Error 13 unless the value is numeric, Error 6 unless it lies within the type's limits.
    void checkNumber(const QVariant &value) const;

    // The setters of Minimum and Maximum: the value checked as checkNumber() does, then stored
    // converted, unless it would cross the other bound: the answer is then false and nothing
    // changes.
    bool setMinimum(const QVariant &minimum);
    bool setMaximum(const QVariant &maximum);
    // Checked as checkNumber() does, stored converted.
    void setIncrement(const QVariant &increment);

    // What a Value must become after Minimum rose above it (the new minimum) or Maximum fell
    // below it (the new maximum); nullopt when it still lies on the right side.
    std::optional<QVariant> raisedToMinimum(const QVariant &value) const;
    std::optional<QVariant> loweredToMaximum(const QVariant &value) const;
    // The value to put back when focus leaves with `value` outside Minimum..Maximum: 0, or the
    // minimum when 0 lies below it. nullopt when nothing needs repairing. The caller assigns it
    // through its Value setter, which may still refuse it (a maximum below 0).
    std::optional<QVariant> repairOnLeaving(const QVariant &value) const;
    // Value + Increment (or minus) in the type; Empty when that leaves the type's limits.
    // Minimum..Maximum is not applied: it is enforced when focus leaves.
    QVariant stepped(const QVariant &value, bool up) const;

    // A property bag's values, taken as they were stored: the bag reader checks each one first,
    // and a stored type does not reset the bounds stored with it.
    void loadDataType(int dataType) { m_dataType = dataType; }
    void loadMinimum(const QVariant &minimum) { m_minimum = minimum; }
    void loadMaximum(const QVariant &maximum) { m_maximum = maximum; }
    void loadIncrement(const QVariant &increment) { m_increment = increment; }

private:
    QLocale m_locale;
    int m_dataType = twCurrency;
    QVariant m_minimum;
    QVariant m_maximum;
    QVariant m_increment;
};

} // namespace Tarnwell
