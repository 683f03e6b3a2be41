# SPDX-License-Identifier: GPL-3.0-or-later
"""Writes the forms of the editor and of its about panel, ZoltaEditor.ui and ZoltaAbout.ui.

The forms repeat a few columns, fonts and palettes many times; here each of them stands once. The
result opens in Qt Designer.

Usage: make_forms.py            write both forms beside this script
       make_forms.py --check    fail if a form is not what this script writes
"""

import sys
from pathlib import Path
from xml.etree import ElementTree as Xml

FAMILY = "M+ 1c medium"
IMAGES = ":/image/zolta/"
LIBRARY = "CommonController_MemAPI::"
KNOB = LIBRARY + "KnobController"
TEXT = LIBRARY + "TextEditController"
BUTTON = LIBRARY + "PushButtonController"
METER = LIBRARY + "RoundMeterController"
CENTRE = "Qt::AlignCenter"
RIGHT = "Qt::AlignRight|Qt::AlignTrailing|Qt::AlignVCenter"

WHITE = (255, 255, 255)
GREY = (153, 153, 153)
BLUE = (3, 148, 208)


def element(parent, tag, text=None, **attributes):
    child = Xml.SubElement(parent, tag, attributes)
    child.text = text
    return child


# Values of properties: functions that put themselves into a <property> element.


def plain(tag, text):
    return lambda parent: element(parent, tag, text)


def string(text):
    return plain("string", text)


def double(value):
    return plain("double", format(value, ".6f"))


def enum(name):
    return plain("enum", name)


def flags(names):
    return plain("set", names)


TRUE = plain("bool", "true")


def rect(x, y, width, height):
    def put(parent):
        box = element(parent, "rect")
        for tag, value in (("x", x), ("y", y), ("width", width), ("height", height)):
            element(box, tag, str(value))

    return put


def font(points=None):
    def put(parent):
        box = element(parent, "font")
        element(box, "family", FAMILY)
        if points:
            element(box, "pointsize", str(points))

    return put


def put_colour(group, role, colour, alpha):
    brush = element(element(group, "colorrole", role=role), "brush", brushstyle="SolidPattern")
    box = element(brush, "color", alpha=str(alpha))
    for tag, value in zip(("red", "green", "blue"), colour):
        element(box, tag, str(value))


def palette(**roles):
    """Each role has a colour, and may have an alpha and another alpha while disabled."""

    def put(parent):
        box = element(parent, "palette")
        for name in ("active", "inactive", "disabled"):
            group = element(box, name)
            for role, (colour, *alphas) in roles.items():
                alpha = (alphas or [255])[-1 if name == "disabled" else 0]
                put_colour(group, role, colour, alpha)

    return put


TEXT_PALETTE = palette(
    WindowText=(WHITE,),
    Text=(WHITE,),
    Highlight=(BLUE, 255, 96),
    HighlightedText=(WHITE,),
    PlaceholderText=(WHITE, 128),
)
# The meter's unlit, red, green and yellow parts.
METER_PALETTE = palette(
    WindowText=((51, 51, 51),),
    Light=((252, 103, 105),),
    Dark=((57, 202, 116),),
    Mid=((249, 226, 67),),
)


# Widgets. Each function appends one to its parent, and returns it where it has children.


def widget(parent, kind, name, geometry, **properties):
    child = element(parent, "widget", **{"class": kind, "name": name})
    for key, put in {"geometry": rect(*geometry), **properties}.items():
        put(element(child, "property", name=key))
    return child


def area(parent, name, geometry):
    return widget(parent, "QWidget", name, geometry)


def picture(parent, name, geometry, svg):
    return widget(parent, "SvgLabel", name, geometry, svg=string(IMAGES + svg))


def label(parent, name, geometry, points, text, alignment=None, colour=WHITE):
    properties = {"palette": palette(WindowText=(colour,)), "font": font(points)}
    if text:
        properties["text"] = string(text)
    if alignment:
        properties["alignment"] = flags(alignment)
    widget(parent, "QLabel", name, geometry, **properties)


def images(**names):
    return {key: string(IMAGES + name) for key, name in names.items()}


def knob(parent, name, geometry, svg, angles=None):
    properties = images(knobSvg=svg + ".svg", backgroundSvg=svg + "_back.svg")
    properties["knobType"] = enum(KNOB + "::RotateKnob")
    if angles:
        properties["startAngle"], properties["spanAngle"] = map(double, angles)
    widget(parent, KNOB, name, geometry, **properties)


def text_edit(parent, name, geometry, postfix=None):
    properties = {"palette": TEXT_PALETTE, "font": font(9)}
    if postfix:
        properties["postfix"] = string(postfix)
    properties["alignment"] = flags(CENTRE)
    properties["textTrim"] = TRUE
    widget(parent, TEXT, name, geometry, **properties)


def momentary(parent, name, geometry, svg):
    widget(parent, BUTTON, name, geometry,
           **images(buttonSvg=svg + "_up.svg", pushButtonSvg=svg + "_dw.svg"))


def switch(parent, name, geometry, pictures, **properties):
    widget(parent, BUTTON, name, geometry, checkable=TRUE, **pictures, **properties)


# The face's columns.

SWEEP = (210, 300)
TYPE_SWEEP = (300, 120)


def level_column(parent, name, x):
    column = area(parent, f"m_p{name}Area", (x, 388, 76, 110))
    label(column, f"m_p{name}Label", (0, 0, 76, 16), 9, name.upper(), CENTRE)
    knob(column, f"m_p{name}Knob", (0, 18, 76, 76), "knob_level")
    text_edit(column, f"m_p{name}TextEdit", (10, 96, 56, 14), "dB")


def led_area(parent, name, geometry, bars):
    meter = area(parent, f"m_p{name}Area", geometry)
    for text, y in (("6", 17), ("12", 33), ("18", 49), ("24", 66), ("30", 82)):
        label(meter, f"m_p{name}{text}Label", (0, y, 14, 14), 7, text, RIGHT)
    for suffix, x in bars:
        picture(meter, f"m_p{name}{suffix}", (x, 0, 10, 94), "meter_0.svg")


def frequency_area(column, band, x, y):
    part = area(column, f"m_p{band}FrequencyArea", (x, y, 60, 73))
    knob(part, f"m_p{band}FrequencyKnob", (0, 0, 60, 60), "knob_F", SWEEP)
    text_edit(part, f"m_p{band}FrequencyTextEdit", (2, 59, 56, 14), "Hz")


def gain_area(column, band, x, y, can_be_without):
    part = area(column, f"m_p{band}GainArea", (x, y, 60, 73))
    if can_be_without:
        picture(part, f"m_p{band}GainKnobDisable", (0, 0, 60, 60), "knob_G_dis.svg")
    knob(part, f"m_p{band}GainKnob", (0, 0, 60, 60), "knob_G", SWEEP)
    text_edit(part, f"m_p{band}GainTextEdit", (2, 59, 56, 14), "dB")


def band_button(column, band, x, y, colour):
    pictures = images(buttonSvg="btn_off_up.svg", pushButtonSvg=f"btn_{colour}_dw.svg",
                      onButtonSvg=f"btn_{colour}_up.svg")
    switch(column, f"m_p{band}Button", (x, y, 28, 28), pictures)


def shelf_column(parent, band, x, colour):
    column = area(parent, f"m_p{band}Area", (x, 258, 66, 285))
    part = area(column, f"m_p{band}TypeArea", (0, 0, 66, 67))
    # The high band shows the low band's icon too.
    picture(part, f"m_p{band}TypeLabel", (0, 0, 66, 18), "icon_Q_Low.svg")
    knob(part, f"m_p{band}TypeKnob", (3, 7, 60, 60), "knob_QLH", TYPE_SWEEP)
    frequency_area(column, band, 3, 82)
    gain_area(column, band, 3, 167, can_be_without=True)
    band_button(column, band, 20, 257, colour)


def peak_column(parent, band, x, colour):
    column = area(parent, f"m_p{band}Area", (x, 252, 70, 291))
    part = area(column, f"m_p{band}QualityArea", (0, 0, 70, 78))
    picture(part, f"m_p{band}QualityLabel", (0, 0, 70, 10), "icon_Q_Mid.svg")
    knob(part, f"m_p{band}QualityKnob", (6, 5, 60, 60), "knob_Q", SWEEP)
    text_edit(part, f"m_p{band}QualityTextEdit", (7, 64, 56, 14))
    frequency_area(column, band, 6, 88)
    gain_area(column, band, 6, 173, can_be_without=False)
    band_button(column, band, 23, 263, colour)


def level_meter(parent, name, x):
    label(parent, f"m_p{name}MeterLabel", (x - 10, 111, 40, 14), 11, name[:-3].upper(), CENTRE)
    stereo = picture(parent, f"m_p{name}StereoMeterBackground", (x, 130, 20, 326),
                     "back_meter.svg")
    for side, left in (("L", 0), ("R", 8)):
        widget(stereo, METER, f"m_p{name}StereoMeter{side}", (left, 4, 12, 318),
               palette=METER_PALETTE)
    mono = picture(parent, f"m_p{name}MonoMeterBackground", (x + 4, 130, 12, 326),
                   "back_meter_mono.svg")
    widget(mono, METER, f"m_p{name}MonoMeter", (0, 4, 12, 318), palette=METER_PALETTE)


def meter_scale(parent):
    scale = area(parent, "m_pMeterLabel", (907, 145, 24, 308))
    # As uneven as the meters' own scale.
    marks = ((0, 0), (3, 28), (6, 63), (9, 99), (12, 122), (15, 140), (18, 158), (24, 182),
             (30, 205), (40, 247), (50, 276), (60, 294))
    for level, y in marks:
        name = f"m_pMeterMinus{level}Label" if level else "m_pMeter0Label"
        text = f"-{level}" if level else "0"
        label(scale, name, (0, y, 22, 14), 8, text, RIGHT, GREY)


def drive_switch(parent):
    pictures = images(buttonSvg="sw_crean.svg", pushButtonSvg="sw_crean.svg",
                      onButtonSvg="sw_drive.svg", onPushButtonSvg="sw_drive.svg")
    trigger = "|".join(f"{BUTTON}::{flag}" for flag in ("Press", "On", "Off"))
    switch(parent, "m_pDriveCleanSwitch", (192, 310, 37, 48), pictures,
           checkTrigger=flags(trigger))
    for name, y in (("Drive", 314), ("Clean", 337)):
        for state in ("Off", "On"):
            picture(parent, f"m_p{name}{state}Led", (82, y, 20, 20),
                    f"led_{name.lower()}_{state.lower()}.svg")


# The order in which widgets are added is the order in which they are created and stacked.


def fill_editor(form):
    face = picture(form, "m_pBackground", (0, 0, 977, 559), "back_zolta.svg")
    widget(face, BUTTON, "m_pAboutButton", (32, 270, 232, 23))
    label(face, "m_pZoomLabel", (813, 63, 40, 16), 9, "ZOOM", CENTRE)
    momentary(face, "m_pZoomPlusButton", (820, 90, 26, 26), "btn_plus")
    momentary(face, "m_pZoomMinusButton", (820, 122, 26, 26), "btn_minus")
    spectrum = images(buttonSvg="btn_spectrum_off_up.svg", pushButtonSvg="btn_spectrum_off_dw.svg",
                      onButtonSvg="btn_spectrum_on_up.svg",
                      onPushButtonSvg="btn_spectrum_on_dw.svg")
    switch(face, "m_pEqualizerSpectrumButton", (820, 167, 26, 26), spectrum)
    label(face, "m_pDriveLabel", (119, 315, 40, 16), 9, "DRIVE")
    label(face, "m_pCleanLabel", (119, 338, 40, 16), 9, "CLEAN")
    level_column(face, "Input", 51)
    label(face, "m_pLedMeterPeakLabel", (147, 388, 34, 14), 8, "PEAK", CENTRE)
    led_area(face, "LedStereoMeter", (132, 403, 46, 96), (("L", 18), ("R", 36)))
    led_area(face, "LedMonoMeter", (141, 403, 28, 96), (("", 18),))
    level_column(face, "Output", 186)
    momentary(face, "m_pFlatButton", (231, 515, 26, 26), "btn_flat")
    shelf_column(face, "Low", 274, "red")
    peak_column(face, "Middle1", 362, "orange")
    label(face, "m_pFlatLabel", (196, 519, 32, 16), 9, "FLAT")
    peak_column(face, "Middle2", 453, "yellow")
    peak_column(face, "Middle3", 544, "green")
    peak_column(face, "Middle4", 635, "blue")
    shelf_column(face, "High", 729, "purple")
    for name, y in (("Quality", 284), ("Frequency", 360), ("Gain", 444)):
        label(face, f"m_p{name}Label", (796, y, 20, 20), 13, name[0], CENTRE)
    level_meter(face, "Input", 887)
    meter_scale(face)
    level_meter(face, "Output", 932)
    drive_switch(face)


def fill_about(form):
    picture(form, "m_pQuentaLogo", (22, 26, 135, 29), "about_quenta_logo.svg")
    picture(form, "m_pZoltaLogo", (143, 234, 691, 88), "about_zolta_logo.svg")
    for name, y in (("Version", 505), ("Copyright", 525)):
        label(form, f"m_p{name}Label", (547, y, 400, 14), 9, None, RIGHT)


# Files.

CUSTOM_WIDGETS = (
    ("SvgLabel", "QLabel", "widgets/SvgLabel.h"),
    (BUTTON, "QPushButton", "controls/PushButtonController.h"),
    (KNOB, "QWidget", "controls/KnobController.h"),
    (TEXT, "QWidget", "controls/TextEditController.h"),
    (METER, "QWidget", "controls/RoundMeterController.h"),
)


def add_custom_widgets(document):
    used = {node.get("class") for node in document.iter("widget")}
    box = element(document, "customwidgets")
    for kind, base, header in CUSTOM_WIDGETS:
        if kind in used:
            custom = element(box, "customwidget")
            for tag, text in (("class", kind), ("extends", base), ("header", header)):
                element(custom, tag, text)


def form_text(name, alpha, fill):
    document = Xml.Element("ui", version="4.0", connectslotsbyname="false")
    element(document, "class", name)
    form = widget(document, "QWidget", name, (0, 0, 977, 559),
                  palette=palette(Window=((0, 0, 0), alpha)), font=font(),
                  focusPolicy=enum("Qt::ClickFocus"), autoFillBackground=TRUE)
    fill(form)
    add_custom_widgets(document)
    element(document, "resources")
    element(document, "connections")
    Xml.indent(document, " ")
    licence = "<!-- SPDX-License-Identifier: GPL-3.0-or-later -->"
    body = Xml.tostring(document, encoding="unicode")
    return f'<?xml version="1.0" encoding="UTF-8"?>\n{licence}\n{body}\n'


def main(arguments):
    folder = Path(__file__).parent
    forms = {
        "ZoltaEditor.ui": form_text("ZoltaEditor", 255, fill_editor),
        "ZoltaAbout.ui": form_text("ZoltaAbout", 224, fill_about),
    }
    if arguments == ["--check"]:
        stale = [n for n, text in forms.items() if (folder / n).read_text("utf-8") != text]
        for name in stale:
            print(f"{name} is not what make_forms.py writes", file=sys.stderr)
        return 1 if stale else 0
    if arguments:
        print(__doc__, file=sys.stderr)
        return 2
    for name, text in forms.items():
        (folder / name).write_text(text, "utf-8")
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
