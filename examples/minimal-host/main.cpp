// SPDX-License-Identifier: GPL-3.0-or-later
// A host of one channel: gives the editor a model of the hardware, a memory of parameters and
// meters, shows it, and keeps its state in a file.
//
//   minimal-host [--load FILE] [--save FILE] [--picture FILE]
//
// With --save or --picture it does that and ends; otherwise the editor stays open.
#include "Memory.h"
#include "Model.h"
#include "Stream.h"

#include <zolta/interfaces/IVaskEffect.h>
#include <zolta/interfaces/IVaskEffectEditor2.h>
#include <zolta/parameters/SavedState.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QPluginLoader>

#include <pluginterfaces/vst/ivstcomponent.h>

namespace {

/// The component takes any bytes: the host checks them first.
bool load(IVaskEffectEditor2& editor, const QString& name)
{
    QFile file(name);
    Stream stream;
    if (file.open(QIODevice::ReadOnly))
        stream.bytes = file.readAll();
    const auto* bytes = reinterpret_cast<const unsigned char*>(stream.bytes.constData());
    return decodeState({bytes, std::size_t(stream.bytes.size())}) &&
           editor.getVstComponent()->setState(&stream) == Steinberg::kResultOk;
}

bool save(const IVaskEffectEditor2& editor, const QString& name)
{
    QFile file(name);
    Stream stream;
    return editor.getVstComponent()->getState(&stream) == Steinberg::kResultOk &&
           file.open(QIODevice::WriteOnly) && file.write(stream.bytes) == stream.bytes.size();
}

IVaskEffectEditor2* makeEditor(QWidget* window, IModelInfo* model)
{
    QPluginLoader library(QStringLiteral(EDITOR_LIBRARY));
    auto* effect = qobject_cast<IVaskEffect*>(library.instance());
    if (!effect)
        qFatal("%s", qPrintable(library.errorString()));
    return dynamic_cast<IVaskEffectEditor2*>(effect->create(window, 0, model));
}

void setUp(IVaskEffectEditor2& editor, Memory& memory)
{
    editor.setMemAPI(&memory);
    editor.setCh(0, -1); // mono
    editor.setFs(48000);
    editor.setDialEditMode(2); // knobs turn by dragging straight
    memory.meters.show(-120, -90);
}

} // namespace

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("FONTCONFIG_PATH"))
        qputenv("FONTCONFIG_PATH", FONTS_FOLDER); // the editor's fonts, before the application
    const QApplication application(argc, argv);
    QCommandLineParser options;
    options.addOptions({{"load", "State to begin with.", "file"},
                        {"save", "State to write.", "file"},
                        {"picture", "PNG to write.", "file"}});
    options.addHelpOption();
    options.process(application);

    Model model;
    Memory memory;
    QWidget window; // goes before the memory that its editor uses
    IVaskEffectEditor2* editor = makeEditor(&window, &model);
    setUp(*editor, memory);
    window.setFixedSize(editor->size());

    if (options.isSet("load") && !load(*editor, options.value("load")))
        qFatal("The state %s cannot be loaded.", qPrintable(options.value("load")));
    if (options.isSet("save") && !save(*editor, options.value("save")))
        qFatal("The state %s cannot be saved.", qPrintable(options.value("save")));
    if (options.isSet("picture") && !editor->grab().save(options.value("picture")))
        qFatal("The picture %s cannot be written.", qPrintable(options.value("picture")));
    if (options.isSet("save") || options.isSet("picture"))
        return 0;
    window.show();
    return QApplication::exec();
}
