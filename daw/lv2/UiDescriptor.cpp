// SPDX-License-Identifier: GPL-3.0-or-later
// The one function that LV2 hosts look for in the library of the editor. Nothing that it hands out
// lets an exception out.
#include "daw/lv2/Lv2Editor.h"

#include <lv2/atom/atom.h>
#include <lv2/core/lv2.h>
#include <lv2/options/options.h>
#include <lv2/parameters/parameters.h>
#include <lv2/ui/ui.h>
#include <lv2/urid/urid.h>

#include <cmath>
#include <cstring>
#include <string_view>

namespace {

template <typename Data>
const Data* featureOf(const LV2_Feature* const* features, std::string_view uri)
{
    for (; features && *features; ++features) {
        if (uri == (*features)->URI)
            return static_cast<const Data*>((*features)->data);
    }
    return nullptr;
}

// The number that a host's option has, or 0; hosts give it in any of their kinds of numbers.
class Options
{
public:
    explicit Options(const LV2_Feature* const* features)
        : m_map(featureOf<LV2_URID_Map>(features, LV2_URID__map))
        , m_options(featureOf<LV2_Options_Option>(features, LV2_OPTIONS__options))
    {}

    double number(const char* uri) const
    {
        const LV2_Options_Option* option = m_map ? m_options : nullptr;
        for (; option && option->key != 0; ++option) {
            if (option->key == id(uri))
                return numberIn(*option);
        }
        return 0.0;
    }

private:
    LV2_URID id(const char* uri) const { return m_map->map(m_map->handle, uri); }

    double numberIn(const LV2_Options_Option& option) const
    {
        if (option.type == id(LV2_ATOM__Float))
            return numberAs<float>(option);
        if (option.type == id(LV2_ATOM__Double))
            return numberAs<double>(option);
        return option.type == id(LV2_ATOM__Int) ? numberAs<std::int32_t>(option) : 0.0;
    }

    template <typename Number> static double numberAs(const LV2_Options_Option& option)
    {
        Number number{};
        if (option.value && option.size == sizeof number)
            std::memcpy(&number, option.value, sizeof number);
        return static_cast<double>(number);
    }

    const LV2_URID_Map* m_map;
    const LV2_Options_Option* m_options;
};

EmbeddedEditor::Options editorOptions(const LV2_Feature* const* features, const Options& options,
                                      bool stereo)
{
    const double ratio = options.number(LV2_UI__scaleFactor);
    EmbeddedEditor::Options chosen;
    chosen.parent = static_cast<std::uint32_t>(
        reinterpret_cast<std::uintptr_t>(featureOf<void>(features, LV2_UI__parent)));
    chosen.stereo = stereo;
    if (ratio >= EmbeddedEditor::minScale && ratio <= EmbeddedEditor::maxScale) {
        chosen.pixelRatio = ratio;
        chosen.width = static_cast<int>(std::lround(chosen.width * ratio));
        chosen.height = static_cast<int>(std::lround(chosen.height * ratio));
    }
    return chosen;
}

Lv2Editor::Host hostOf(LV2UI_Write_Function write, LV2UI_Controller controller,
                       const LV2UI_Touch* touch)
{
    Lv2Editor::Host host;
    host.write = [write, controller](std::uint32_t port, float value) {
        write(controller, port, sizeof value, 0, &value);
    };
    host.touch = [touch](std::uint32_t port, bool held) {
        if (touch)
            touch->touch(touch->handle, port, held);
    };
    return host;
}

Lv2Editor& editor(LV2UI_Handle handle) { return *static_cast<Lv2Editor*>(handle); }

LV2UI_Handle instantiate(const LV2UI_Descriptor*, const char* plugin, const char*,
                         LV2UI_Write_Function write, LV2UI_Controller controller,
                         LV2UI_Widget* widget, const LV2_Feature* const* features)
{
    try {
        const Options options(features);
        const bool stereo = std::string_view(plugin) != monoUri;
        auto made = std::make_unique<Lv2Editor>(
            stereo ? 2 : 1,
            hostOf(write, controller, featureOf<LV2UI_Touch>(features, LV2_UI__touch)),
            editorOptions(features, options, stereo));
        EmbeddedEditor& window = made->window();
        if (!window.isOpen())
            return nullptr;
        window.setSampleRate(
            static_cast<int>(std::lround(options.number(LV2_PARAMETERS__sampleRate))));
        if (const auto* resize = featureOf<LV2UI_Resize>(features, LV2_UI__resize))
            resize->ui_resize(resize->handle, window.width(), window.height());
        *widget = reinterpret_cast<LV2UI_Widget>(static_cast<std::uintptr_t>(window.id()));
        return made.release();
    } catch (...) {
        return nullptr;
    }
}

void cleanup(LV2UI_Handle handle) { delete &editor(handle); }

void portEvent(LV2UI_Handle handle, std::uint32_t port, std::uint32_t size, std::uint32_t format,
               const void* buffer)
{
    float value = 0.0F;
    if (format != 0 || size != sizeof value)
        return;
    std::memcpy(&value, buffer, sizeof value);
    editor(handle).setPort(port, value);
}

int idle(LV2UI_Handle handle)
{
    editor(handle).window().relay();
    return 0;
}

int resize(LV2UI_Feature_Handle handle, int width, int height)
{
    editor(handle).window().resize(width, height);
    return 0;
}

const void* extensionData(const char* uri)
{
    static constexpr LV2UI_Idle_Interface idleInterface = {idle};
    static constexpr LV2UI_Resize resizeInterface = {nullptr, resize};
    const std::string_view wanted = uri;
    if (wanted == LV2_UI__idleInterface)
        return &idleInterface;
    return wanted == LV2_UI__resize ? &resizeInterface : nullptr;
}

constexpr LV2UI_Descriptor descriptor = {uiUri, instantiate, cleanup, portEvent, extensionData};

} // namespace

LV2_SYMBOL_EXPORT const LV2UI_Descriptor* lv2ui_descriptor(std::uint32_t index)
{
    return index == 0 ? &descriptor : nullptr;
}
