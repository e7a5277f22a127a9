#include "field.h"
#include "shownvalues.h"

#include <QCoreApplication>

namespace Tavoro::Panel {

namespace {

using Kind = Models::ObjectKind;
constexpr auto Text = FieldEditor::Text;
constexpr auto Number = FieldEditor::Number;
constexpr auto Flag = FieldEditor::Flag;
constexpr auto Choice = FieldEditor::Choice;
constexpr auto Colour = FieldEditor::Colour;
constexpr auto Source = FieldEditor::Source;
constexpr auto Shown = FieldEditor::Shown;

constexpr int code = 65535; // the greatest code of the device
constexpr int whole = 100000; // a crop's ratio of the whole picture

// clang-format off

// The words of codes
//   value text
constexpr FieldChoice scenes[] = {
    {0,   QT_TRANSLATE_NOOP("Details", "Preview")},
    {1,   QT_TRANSLATE_NOOP("Details", "Programme")},
    {0,   nullptr},
};
constexpr FieldChoice genlocks[] = {
    {0,   QT_TRANSLATE_NOOP("Details", "Internal clock")},
    {1,   QT_TRANSLATE_NOOP("Details", "External signal")},
    {2,   QT_TRANSLATE_NOOP("Details", "An input")},
    {0,   nullptr},
};

constexpr FieldChoice followed[] = {
    {255, QT_TRANSLATE_NOOP("Details", "as the signal")},
    {0,   nullptr},
};
constexpr FieldChoice flips[] = {
    {0,   QT_TRANSLATE_NOOP("Details", "none")},
    {0,   nullptr},
};

// Fields that several kinds of objects share
//   path                       label                       editor  least  most   divisor unit
constexpr Field imageQuality[] = {
    {"imageQuality.contrast.all",   QT_TRANSLATE_NOOP("Details", "Contrast"),       Number, 0,     100,   1,   "%"},
    {"imageQuality.brightness.all", QT_TRANSLATE_NOOP("Details", "Brightness"),     Number, 0,     100,   1,   "%"},
    {"imageQuality.hue",            QT_TRANSLATE_NOOP("Details", "Hue"),            Number, -180,  180,   1,   "°"},
    {"imageQuality.saturation",     QT_TRANSLATE_NOOP("Details", "Saturation"),     Number, 0,     100,   1,   "%"},
    {"imageQuality.gamma",          QT_TRANSLATE_NOOP("Details", "Gamma"),          Number, 10,    1000,  100, ""},
};
constexpr Field testPattern[] = {
    {"testPattern.enable",          QT_TRANSLATE_NOOP("Details", "Show pattern"),   Flag},
    {"testPattern.type",            QT_TRANSLATE_NOOP("Details", "Pattern"),        Number, 0,     code},
    {"testPattern.bright",          QT_TRANSLATE_NOOP("Details", "Brightness"),     Number, 0,     code},
    {"testPattern.speed",           QT_TRANSLATE_NOOP("Details", "Speed"),          Number, 0,     code},
};

// The device as a whole
//   path                       label                       editor  least  most   divisor unit  choices  text
constexpr Field deviceGeneral[] = {
    {"general.name",            QT_TRANSLATE_NOOP("Details", "Name"),               Text,   1,     128},
    {"ip",                      QT_TRANSLATE_NOOP("Details", "Address"),            Shown,  0,     0,     1,   "",  nullptr, plainText},
    {"sn",                      QT_TRANSLATE_NOOP("Details", "Serial number"),      Shown,  0,     0,     1,   "",  nullptr, plainText},
    {"mac",                     QT_TRANSLATE_NOOP("Details", "MAC address"),        Shown,  0,     0,     1,   "",  nullptr, plainText},
    {"subcards",                QT_TRANSLATE_NOOP("Details", "Cards"),              Shown,  0,     0,     1,   "",  nullptr, countText},
};
constexpr Field deviceSwitching[] = {
    {"swap",                    QT_TRANSLATE_NOOP("Details", "A take swaps preview and programme"), Flag},
    {"presetApplyType",         QT_TRANSLATE_NOOP("Details", "Presets go to"),      Choice, 0,     1,     1,   "",  scenes},
    {"zeLKEnable",              QT_TRANSLATE_NOOP("Details", "ZeLK"),               Flag},
};
constexpr Field deviceGenlock[] = {
    {"genlock.type",            QT_TRANSLATE_NOOP("Details", "Locked to"),          Choice, 0,     2,     1,   "",  genlocks},
    {"genlockSignal.status",    QT_TRANSLATE_NOOP("Details", "Locked"),             Shown,  0,     0,     1,   "",  nullptr, yesNoText},
};
constexpr Field dynamicRange[] = {
    {"dynamicRangConversion.enable", QT_TRANSLATE_NOOP("Details", "Convert"),       Flag},
    {"dynamicRangConversion.type",   QT_TRANSLATE_NOOP("Details", "Conversion"),    Number, 0,     code},
};

// Interfaces
constexpr Field interfaceGeneral[] = {
    {"general.name",            QT_TRANSLATE_NOOP("Details", "Name"),               Text,   0,     128},
    {"actualTiming",            QT_TRANSLATE_NOOP("Details", "Signal"),             Shown,  0,     0,     1,   "",  nullptr, timingText},
    {"colorDepths.actualColorDepth", QT_TRANSLATE_NOOP("Details", "Colour depth"),  Shown,  0,     0,     1,   "",  nullptr, plainText},
    {"HDCP.enable",             QT_TRANSLATE_NOOP("Details", "Copy protection (HDCP)"), Flag},
};
constexpr Field requestedFormat[] = {
    {"presetTiming.horizontal.addTime",    QT_TRANSLATE_NOOP("Details", "Width"),        Number, 0, code,    1, "px"},
    {"presetTiming.vertical.addTime",      QT_TRANSLATE_NOOP("Details", "Height"),       Number, 0, code,    1, "px"},
    {"presetTiming.refresh",               QT_TRANSLATE_NOOP("Details", "Refresh rate"), Number, 0, 1000000, 1, "Hz"},
    {"presetTiming.interlaced",            QT_TRANSLATE_NOOP("Details", "Interlaced"),   Flag},
    {"colorDepths.presetColorDepth",       QT_TRANSLATE_NOOP("Details", "Colour depth"), Number, 0, code, 1, "", followed},
    {"colorSpaces.presetColorSpace",       QT_TRANSLATE_NOOP("Details", "Colour space"), Number, 0, code, 1, "", followed},
    {"colorRanges.presetColorRange",       QT_TRANSLATE_NOOP("Details", "Colour range"), Number, 0, code, 1, "", followed},
};
constexpr Field interfaceCrop[] = {
    {"crop.enable",             QT_TRANSLATE_NOOP("Details", "Show a part"),        Flag},
    {"crop.xRatio",             QT_TRANSLATE_NOOP("Details", "Left"),               Number, 0,     whole, 1000, "%"},
    {"crop.yRatio",             QT_TRANSLATE_NOOP("Details", "Top"),                Number, 0,     whole, 1000, "%"},
    {"crop.widthRatio",         QT_TRANSLATE_NOOP("Details", "Width"),              Number, 1,     whole, 1000, "%"},
    {"crop.heightRatio",        QT_TRANSLATE_NOOP("Details", "Height"),             Number, 1,     whole, 1000, "%"},
};
constexpr Field cutout[] = {
    {"cutoutGeneral.enable",    QT_TRANSLATE_NOOP("Details", "Cut out"),            Flag},
    {"cutoutGeneral.hue.color", QT_TRANSLATE_NOOP("Details", "Colour"),             Colour},
};

// Screens
constexpr Field screenGeneral[] = {
    {"general.name",            QT_TRANSLATE_NOOP("Details", "Name"),               Text,   0,     128},
    {"mosaic.window",           QT_TRANSLATE_NOOP("Details", "Size"),               Shown,  0,     0,     1,   "",  nullptr, sizeText},
    {"mosaic.outputs",          QT_TRANSLATE_NOOP("Details", "Outputs"),            Shown,  0,     0,     1,   "",  nullptr, countText},
    {"backgroundColor",         QT_TRANSLATE_NOOP("Details", "Background"),         Colour},
    {"layout.x",                QT_TRANSLATE_NOOP("Details", "Left on the canvas"), Number, -code, code,  1,   "px"},
    {"layout.y",                QT_TRANSLATE_NOOP("Details", "Top on the canvas"),  Number, -code, code,  1,   "px"},
    {"physicalSize.width",      QT_TRANSLATE_NOOP("Details", "Physical width"),     Number, 0,     code},
    {"physicalSize.height",     QT_TRANSLATE_NOOP("Details", "Physical height"),    Number, 0,     code},
};
constexpr Field screenLive[] = {
    {"freeze",                  QT_TRANSLATE_NOOP("Details", "Frozen"),             Flag},
    {"FTB.enable",              QT_TRANSLATE_NOOP("Details", "Faded to black"),     Flag},
    {"FTB.time",                QT_TRANSLATE_NOOP("Details", "Duration of the fade"), Number, 0,   code},
    {"switchEffect.type",       QT_TRANSLATE_NOOP("Details", "Transition"),         Number, 0,     code},
    {"switchEffect.time",       QT_TRANSLATE_NOOP("Details", "Duration of the transition"), Number, 0, code},
    {"switchEffect.direction",  QT_TRANSLATE_NOOP("Details", "Direction of the transition"), Number, 0, code},
    {"PGMEdit",                 QT_TRANSLATE_NOOP("Details", "Edits go to the programme"), Flag},
    {"screenZeLK.enable",       QT_TRANSLATE_NOOP("Details", "ZeLK"),               Flag},
};

// Layers
constexpr Field layerGeneral[] = {
    {"general.name",            QT_TRANSLATE_NOOP("Details", "Name"),               Text,   0,     128},
    {"source.general",          QT_TRANSLATE_NOOP("Details", "Source"),             Source},
    {"window.x",                QT_TRANSLATE_NOOP("Details", "Left"),               Number, -code, code,  1,   "px"},
    {"window.y",                QT_TRANSLATE_NOOP("Details", "Top"),                Number, -code, code,  1,   "px"},
    {"window.width",            QT_TRANSLATE_NOOP("Details", "Width"),              Number, 1,     code,  1,   "px"},
    {"window.height",           QT_TRANSLATE_NOOP("Details", "Height"),             Number, 1,     code,  1,   "px"},
    {"zorder",                  QT_TRANSLATE_NOOP("Details", "Place in the stack"), Number, 0,     code},
    {"opacity",                 QT_TRANSLATE_NOOP("Details", "Opacity"),            Number, 0,     100,   1,   "%"},
};
constexpr Field layerPicture[] = {
    {"general.isFreeze",        QT_TRANSLATE_NOOP("Details", "Frozen"),             Flag},
    {"general.isMonochrome",    QT_TRANSLATE_NOOP("Details", "Monochrome"),         Flag},
    {"general.isInverse",       QT_TRANSLATE_NOOP("Details", "Inverted colours"),   Flag},
    {"general.flipType",        QT_TRANSLATE_NOOP("Details", "Flip"),               Number, 0,     code,  1,   "",  flips},
    {"testColor.enable",        QT_TRANSLATE_NOOP("Details", "Show test colour"),   Flag},
    {"testColor",               QT_TRANSLATE_NOOP("Details", "Test colour"),        Colour},
};
constexpr Field layerMask[] = {
    {"mask.enable",             QT_TRANSLATE_NOOP("Details", "Mask edges"),         Flag},
    {"mask.left",               QT_TRANSLATE_NOOP("Details", "Left"),               Number, 0,     code,  1,   "px"},
    {"mask.right",              QT_TRANSLATE_NOOP("Details", "Right"),              Number, 0,     code,  1,   "px"},
    {"mask.top",                QT_TRANSLATE_NOOP("Details", "Top"),                Number, 0,     code,  1,   "px"},
    {"mask.bottom",             QT_TRANSLATE_NOOP("Details", "Bottom"),             Number, 0,     code,  1,   "px"},
};
constexpr Field layerBorder[] = {
    {"border.enable",           QT_TRANSLATE_NOOP("Details", "Show border"),        Flag},
    {"border.size.hWidth",      QT_TRANSLATE_NOOP("Details", "Horizontal width"),   Number, 0,     code,  1,   "px"},
    {"border.size.vWidth",      QT_TRANSLATE_NOOP("Details", "Vertical width"),     Number, 0,     code,  1,   "px"},
    {"border.color",            QT_TRANSLATE_NOOP("Details", "Colour"),             Colour},
    {"border.color.opacity",    QT_TRANSLATE_NOOP("Details", "Opacity"),            Number, 0,     100,   1,   "%"},
};
constexpr Field layerShadow[] = {
    {"shadow.general.enable",   QT_TRANSLATE_NOOP("Details", "Show shadow"),        Flag},
    {"shadow.general.feather",  QT_TRANSLATE_NOOP("Details", "Soft edge"),          Number, 0,     code,  1,   "px"},
    {"shadow.color",            QT_TRANSLATE_NOOP("Details", "Colour"),             Colour},
    {"shadow.color.opacity",    QT_TRANSLATE_NOOP("Details", "Opacity"),            Number, 0,     100,   1,   "%"},
};

// Files
constexpr Field fileGeneral[] = {
    {"general.name",            QT_TRANSLATE_NOOP("Details", "Name"),               Text,   1,     255},
    {"fileType",                QT_TRANSLATE_NOOP("Details", "Type"),               Shown,  0,     0,     1,   "",  nullptr, fileTypeText},
    {"fileId",                  QT_TRANSLATE_NOOP("Details", "Number"),             Shown,  0,     0,     1,   "",  nullptr, plainText},
    {"size.length",             QT_TRANSLATE_NOOP("Details", "Length"),             Shown,  0,     0,     1,   "",  nullptr, bytesText},
    {"size",                    QT_TRANSLATE_NOOP("Details", "Picture size"),       Shown,  0,     0,     1,   "",  nullptr, sizeText},
};

const Section sections[] = {
    {Kind::Device,    QT_TRANSLATE_NOOP("Details", "Device"),           deviceGeneral},
    {Kind::Device,    QT_TRANSLATE_NOOP("Details", "Switching"),        deviceSwitching},
    {Kind::Device,    QT_TRANSLATE_NOOP("Details", "Genlock"),          deviceGenlock},
    {Kind::Device,    QT_TRANSLATE_NOOP("Details", "Dynamic range"),    dynamicRange},
    {Kind::Interface, QT_TRANSLATE_NOOP("Details", "Interface"),        interfaceGeneral},
    {Kind::Interface, QT_TRANSLATE_NOOP("Details", "Requested format"), requestedFormat},
    {Kind::Interface, QT_TRANSLATE_NOOP("Details", "Crop"),             interfaceCrop},
    {Kind::Interface, QT_TRANSLATE_NOOP("Details", "Image quality"),    imageQuality},
    {Kind::Interface, QT_TRANSLATE_NOOP("Details", "Cutout"),           cutout},
    {Kind::Interface, QT_TRANSLATE_NOOP("Details", "Test pattern"),     testPattern},
    {Kind::Screen,    QT_TRANSLATE_NOOP("Details", "Screen"),           screenGeneral},
    {Kind::Screen,    QT_TRANSLATE_NOOP("Details", "Live"),             screenLive},
    {Kind::Screen,    QT_TRANSLATE_NOOP("Details", "Image quality"),    imageQuality},
    {Kind::Screen,    QT_TRANSLATE_NOOP("Details", "Test pattern"),     testPattern},
    {Kind::Layer,     QT_TRANSLATE_NOOP("Details", "Layer"),            layerGeneral},
    {Kind::Layer,     QT_TRANSLATE_NOOP("Details", "Picture"),          layerPicture},
    {Kind::Layer,     QT_TRANSLATE_NOOP("Details", "Image quality"),    imageQuality},
    {Kind::Layer,     QT_TRANSLATE_NOOP("Details", "Mask"),             layerMask},
    {Kind::Layer,     QT_TRANSLATE_NOOP("Details", "Border"),           layerBorder},
    {Kind::Layer,     QT_TRANSLATE_NOOP("Details", "Shadow"),           layerShadow},
    {Kind::File,      QT_TRANSLATE_NOOP("Details", "File"),             fileGeneral},
};
// clang-format on

} // namespace

std::vector<Section> sectionsOf(Models::ObjectKind kind)
{
    std::vector<Section> found;
    for (const Section &section : sections) {
        if (section.kind == kind)
            found.push_back(section);
    }
    return found;
}

} // namespace Tavoro::Panel
