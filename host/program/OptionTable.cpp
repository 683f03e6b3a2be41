// SPDX-License-Identifier: GPL-3.0-or-later
#include "host/program/OptionTable.h"

#include "host/program/OptionValue.h"
#include "parameters/ParameterTable.h"

#include <array>

namespace {

using namespace OptionValue;

constexpr int minSampleRate = 1000;
constexpr int maxSampleRate = 768000;
constexpr int minBlock = 16;
constexpr int maxBlock = 8192;
constexpr double minScale = 0.5;
constexpr double maxScale = 4.0;

Status setPlugin(const Option& o, const QString& value, CommandLine* line)
{
    return readFile(o.name, value, &line->plugin);
}

Status setChannel(const Option& o, const QString& value, CommandLine* line)
{
    line->wantsEditor = true;
    return readInteger(o.name, value, 0, maxChannelCount - 1, &line->editor.channel);
}

Status setChannels(const Option& o, const QString& value, CommandLine* line)
{
    return readChannelCount(o.name, value, &line->channels);
}

Status setMono(const Option&, const QString&, CommandLine* line)
{
    line->wantsEditor = true;
    line->editor.stereo = false;
    return Status();
}

Status setScale(const Option& o, const QString& value, CommandLine* line)
{
    return readNumber(o.name, value, minScale, maxScale, &line->editor.scale);
}

Status setSampleRate(const Option& o, const QString& value, CommandLine* line)
{
    line->sampleRateGiven = true;
    return readInteger(o.name, value, minSampleRate, maxSampleRate, &line->editor.sampleRate);
}

Status setSession(const Option& o, const QString& value, CommandLine* line)
{
    return readFile(o.name, value, &line->session);
}

Status setState(const Option& o, const QString& value, CommandLine* line)
{
    line->wantsEditor = true;
    return readFile(o.name, value, &line->state);
}

Status setSetting(const Option&, const QString& value, CommandLine* line)
{
    line->wantsEditor = true;
    return readSetting(value, &line->settings);
}

Status setLanguage(const Option& o, const QString& value, CommandLine* line)
{
    return readLanguage(o.name, value, &line->language);
}

Status setMeters(const Option& o, const QString& value, CommandLine* line)
{
    return readSwitch(o.name, value, &line->meters);
}

Status setAudio(const Option& o, const QString& value, CommandLine* line)
{
    return readFile(o.name, value, &line->audio.file);
}

Status setLoop(const Option&, const QString&, CommandLine* line)
{
    line->audio.loop = true;
    return Status();
}

Status setLive(const Option&, const QString&, CommandLine* line)
{
    line->audio.device.live = true;
    return Status();
}

Status setDevice(const Option&, const QString& value, CommandLine* line)
{
    line->audio.device.device = value;
    return Status();
}

Status setRate(const Option& o, const QString& value, CommandLine* line)
{
    return readInteger(o.name, value, minSampleRate, maxSampleRate, &line->audio.device.rate);
}

Status setBlock(const Option& o, const QString& value, CommandLine* line)
{
    return readInteger(o.name, value, minBlock, maxBlock, &line->audio.device.block);
}

Status setDesktop(const Option&, const QString&, CommandLine* line)
{
    line->desktop = true;
    return Status();
}

Status setHelp(const Option&, const QString&, CommandLine* line)
{
    line->help = true;
    return Status();
}

Status setVersion(const Option&, const QString&, CommandLine* line)
{
    line->version = true;
    return Status();
}

Status setList(const Option&, const QString&, CommandLine* line)
{
    line->list = true;
    return Status();
}

Status setSaveState(const Option& o, const QString& value, CommandLine* line)
{
    return readFile(o.name, value, &line->saveState);
}

Status setScreenshot(const Option& o, const QString& value, CommandLine* line)
{
    return readFile(o.name, value, &line->screenshot);
}

Status setDevices(const Option&, const QString&, CommandLine* line)
{
    line->devices = true;
    return Status();
}

// The second file stands alone.
Status setRender(const Option& o, const QString& value, CommandLine* line)
{
    return readFile(o.name, value, &line->render.input);
}

Status setFloat(const Option&, const QString&, CommandLine* line)
{
    line->render.forceFloat = true;
    return Status();
}

Status setOverwrite(const Option&, const QString&, CommandLine* line)
{
    line->render.overwrite = true;
    return Status();
}

OptionGroup generalOptions()
{
    return {
        "",
        {{"plugin", "FILE",
          QT_TRANSLATE_NOOP("CommandLine", "the editor's library (default: "
                                           "../lib/zolta/libZolta.so, seen from this program)"),
          setPlugin},
         {"channels", "2-32",
          QT_TRANSLATE_NOOP("CommandLine", "how many channels the mixer has, an even number from 2 "
                                           "to 32 (default: as many as the session has; a new one "
                                           "has 8)"),
          setChannels},
         {"channel", "0-31",
          QT_TRANSLATE_NOOP(
              "CommandLine",
              "the channel to open, counted from 0 (default: 0); windows count from 1"),
          setChannel},
         {"mono", "",
          QT_TRANSLATE_NOOP("CommandLine", "the channel alone instead of its stereo pair"),
          setMono},
         {"scale", "F", QT_TRANSLATE_NOOP("CommandLine", "zoom, 0.5 to 4 (default: 1)"), setScale},
         {"sample-rate", "HZ",
          QT_TRANSLATE_NOOP("CommandLine", "sampling rate of the curve, 1000 to 768000 (default: "
                                           "48000)"),
          setSampleRate},
         {"session", "FILE",
          QT_TRANSLATE_NOOP("CommandLine", "the session to restore and to save at the end "
                                           "(default: with a window, the one in the user's data; "
                                           "without one, none; without a window a session is only "
                                           "read)"),
          setSession},
         {"state", "FILE",
          QT_TRANSLATE_NOOP("CommandLine", "load the channel's settings: a state of 116 bytes or "
                                           "a .vstpreset"),
          setState},
         {"set",
          "NAME=TEXT",
          QT_TRANSLATE_NOOP("CommandLine", "set a parameter as if TEXT were typed, or with "
                                           "NAME=@N to the raw integer N; repeatable, after "
                                           "--state"),
          setSetting,
          {},
          {},
          true},
         {"language", "en|de|ja",
          QT_TRANSLATE_NOOP("CommandLine", "English, German or Japanese (default: en)"),
          setLanguage},
         {"meters", "on|off",
          QT_TRANSLATE_NOOP("CommandLine", "whether the meters move (default: on in windows, "
                                           "where they show each strip's source; otherwise off; "
                                           "on, a picture shows a test signal after one second)"),
          setMeters},
         {"audio",
          "SOUND",
          QT_TRANSLATE_NOOP("CommandLine", "play a WAV, FLAC or OGG file through the channel's "
                                           "equalizer"),
          setAudio,
          {"live", "list", "save-state", "screenshot", "render", "devices"}},
         {"loop", "", QT_TRANSLATE_NOOP("CommandLine", "repeat the file"), setLoop, {}, {"audio"}},
         {"live",
          "",
          QT_TRANSLATE_NOOP("CommandLine", "play the sound device's inputs instead"),
          setLive,
          {"list", "save-state", "screenshot", "render", "devices"}},
         {"device",
          "NAME",
          QT_TRANSLATE_NOOP("CommandLine", "the sound device, or a part of its name (default: "
                                           "the system's default device)"),
          setDevice,
          {},
          {"audio", "live"}},
         {"rate",
          "HZ",
          QT_TRANSLATE_NOOP("CommandLine", "the device's sampling rate (default: the file's, if "
                                           "the device has it)"),
          setRate,
          {},
          {"audio", "live"}},
         {"block",
          "FRAMES",
          QT_TRANSLATE_NOOP("CommandLine", "the device's block size, 16 to 8192 (default: the "
                                           "device's own)"),
          setBlock,
          {},
          {"audio", "live"}},
         {"desktop",
          "",
          QT_TRANSLATE_NOOP("CommandLine", "equalize everything that the desktop plays through "
                                           "PipeWire as long as the editor is open, instead of "
                                           "opening the mixer; its settings are kept for the next "
                                           "time"),
          setDesktop,
          {"channels", "channel", "mono", "sample-rate", "session", "audio", "live", "list",
           "save-state", "screenshot", "render", "devices"}}}};
}

OptionGroup editorCommands()
{
    return {
        QT_TRANSLATE_NOOP("CommandLine",
                          "These are carried out in this order, without a window; then "
                          "the program ends:"),
        {{"help",
          "",
          QT_TRANSLATE_NOOP("CommandLine", "show this help (also -h)"),
          setHelp,
          {},
          {},
          false,
          "h"},
         {"version", "", QT_TRANSLATE_NOOP("CommandLine", "say which version this is"), setVersion},
         {"list", "",
          QT_TRANSLATE_NOOP("CommandLine", "print the channel's parameters: name, id, minimum, "
                                           "maximum, default, raw value and text, separated by "
                                           "tabs"),
          setList},
         {"save-state", "FILE",
          QT_TRANSLATE_NOOP("CommandLine", "write the channel's settings, as a preset if FILE "
                                           "ends in .vstpreset"),
          setSaveState},
         {"screenshot", "FILE.png",
          QT_TRANSLATE_NOOP("CommandLine", "write a picture of the editor"), setScreenshot}}};
}

OptionGroup soundCommands()
{
    return {
        QT_TRANSLATE_NOOP("CommandLine", "These do their work alone, without an editor:"),
        {{"devices", "",
          QT_TRANSLATE_NOOP("CommandLine", "print the sound devices: name, outputs, inputs, "
                                           "preferred rate in Hz and remarks, separated by tabs"),
          setDevices},
         {"render",
          "IN OUT",
          QT_TRANSLATE_NOOP("CommandLine", "send a WAV, FLAC or OGG file through the channel's "
                                           "equalizer into a new one whose name ends in .wav, "
                                           ".flac or .ogg; the settings are those of --channel in "
                                           "--session, then --state, then --set"),
          setRender,
          {"list", "save-state", "screenshot", "devices", "plugin", "sample-rate", "meters",
           "scale", "mono", "channels"}},
         {"float",
          "",
          QT_TRANSLATE_NOOP("CommandLine", "write 32-bit floats into a .wav file, whatever the "
                                           "format of IN"),
          setFloat,
          {},
          {"render"}},
         {"overwrite",
          "",
          QT_TRANSLATE_NOOP("CommandLine", "replace OUT without asking; otherwise a terminal asks, "
                                           "and anything else refuses"),
          setOverwrite,
          {},
          {"render"}}}};
}

} // namespace

std::span<const OptionGroup> optionGroups()
{
    static const std::array groups = {generalOptions(), editorCommands(), soundCommands()};
    return groups;
}
