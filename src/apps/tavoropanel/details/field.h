#pragma once

#include <tavoromodels/edithandler.h>

#include <QString>
#include <QVariant>

#include <cstddef>
#include <vector>

/// What the details show of each kind of object: one row per property.
namespace Tavoro::Panel {

/// How a property is shown and edited.
enum class FieldEditor : quint8 {
    Text, ///< A line of text.
    Number, ///< A number with its range and unit.
    Flag, ///< 0 or 1, or true and false.
    Choice, ///< A code of the device, shown as a word.
    Colour, ///< A record with R, G and B.
    Source, ///< What a layer shows: nothing, or an input.
    Shown, ///< A text that cannot be edited.
};

/// A value of the device and its word.
struct FieldChoice {
    int value;
    const char *text;
};

/// A property of an object.
struct Field {
    /// The key of the record, then the keys within its value: "window.x".
    const char *path;
    const char *label;
    FieldEditor editor = FieldEditor::Text;
    int minimum = 0; ///< As the device counts, see \c divisor.
    int maximum = 0; ///< As the device counts. Of a text: its bytes.
    int divisor = 1; ///< The shown number is that of the device divided by this.
    const char *unit = "";
    /// The words of a choice, or of special numbers. Ends with an entry without a text.
    const FieldChoice *choices = nullptr;
    QString (*text)(const QVariant &value) = nullptr; ///< The text of a field that is only shown.

    /// The key under which the device model has the value, and the item model its role.
    QString key() const;
    /// The label, translated.
    QString labelText() const;
    /// The unit, translated, with a space before it; empty if there is none.
    QString unitText() const;
    /// The decimals of the shown number.
    int decimals() const;
    /// The word for a value; empty if it has none.
    QString choiceText(int value) const;
    /// The value of this field in the value of its key.
    QVariant valueIn(const QVariant &keyValue) const;
    /// What to pass to ObjectModel::setData() to change only this field.
    QVariant changeTo(const QVariant &value) const;
};

/// Fields under one heading.
struct Section {
    template <std::size_t count>
    constexpr Section(Models::ObjectKind sectionKind, const char *sectionTitle,
                      const Field (&sectionFields)[count])
        : kind(sectionKind), title(sectionTitle), fields(sectionFields), fieldCount(count)
    { }

    constexpr const Field *begin() const { return fields; }
    constexpr const Field *end() const { return fields + fieldCount; }
    QString titleText() const;

    Models::ObjectKind kind;
    const char *title;
    const Field *fields;
    std::size_t fieldCount;
};

/// The sections of a kind of object, in the order in which they are shown.
std::vector<Section> sectionsOf(Models::ObjectKind kind);

/// Translates a text of the table.
QString fieldText(const char *text);

} // namespace Tavoro::Panel
