#pragma once

#include <QLineEdit>
#include <QObject>
#include <QSignalBlocker>

#include <optional>
#include <utility>

/**
 * A spin box that shows a controller's value and records whether the user has changed it since.
 *
 * `SpinBox` is QSpinBox or QDoubleSpinBox and outlives the object. An unknown value is shown as 0,
 * even when 0 is outside the limits; the limits apply again to the next value.
 */
template <typename SpinBox>
class LimitedValue {
public:
    using Number = decltype(std::declval<const SpinBox>().value());

    explicit LimitedValue(SpinBox *box) : m_box(box)
    {
        // Typing the number that is already shown is an edit, too, but changes no value.
        QObject::connect(box->template findChild<QLineEdit *>(), &QLineEdit::textEdited, &m_context,
                         [this] { m_edited = true; });
        // Enter emits the signal again although the value has not changed.
        QObject::connect(box, QOverload<Number>::of(&SpinBox::valueChanged), &m_context,
                         [this](Number value) {
                             m_edited = m_edited || value != m_last;
                             m_last = value;
                         });
    }
    LimitedValue(const LimitedValue &) = delete;
    LimitedValue &operator=(const LimitedValue &) = delete;

    void setLimits(Number lowest, Number highest)
    {
        m_lowest = lowest;
        m_highest = highest;
        const QSignalBlocker byProgram(m_box);
        m_box->setRange(lowest, highest);
    }

    /** Shows the value, or 0 when there is none; discards an edit that was not sent. */
    void show(std::optional<Number> value)
    {
        const QSignalBlocker byProgram(m_box);
        m_box->setRange(value ? m_lowest : qMin(m_lowest, Number(0)),
                        value ? m_highest : qMax(m_highest, Number(0)));
        m_box->setValue(value.value_or(Number(0)));
        m_last = m_box->value();
        m_edited = false;
    }

    /** The value to send, once for each edit; nothing when the user has not edited the box. */
    std::optional<Number> takeEdit()
    {
        if (!m_edited)
            return std::nullopt;
        // An unknown value is shown outside the limits, but a value that is sent has to be within
        // them.
        show(m_box->value());
        return m_box->value();
    }

private:
    SpinBox *m_box;
    Number m_lowest = 0;
    Number m_highest = 0;
    Number m_last = 0;
    bool m_edited = false;
    QObject m_context; ///< ends the connections when it is destroyed
};
