#include "makeeditor.h"

#include "field.h"
#include "sourceeditor.h"
#include "valueeditors.h"

namespace Tavoro::Panel {

ValueEditor *makeEditor(const Field &field, const LayerSources &sources, QWidget *parent)
{
    switch (field.editor) {
    case FieldEditor::Text:
        return new TextEditor(field, parent);
    case FieldEditor::Number:
        return new NumberEditor(field, parent);
    case FieldEditor::Flag:
        return new FlagEditor(field, parent);
    case FieldEditor::Choice:
        return new ChoiceEditor(field, parent);
    case FieldEditor::Colour:
        return new ColourEditor(field, parent);
    case FieldEditor::Source:
        return new SourceEditor(sources, parent);
    case FieldEditor::Shown:
        break;
    }
    return new ReadOnlyValue(field, parent);
}

} // namespace Tavoro::Panel
