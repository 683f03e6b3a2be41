<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-License-Identifier: GPL-3.0-or-later -->
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>EditorWindow</name>
    <message>
        <source>Presets (*.vstpreset);;Plain states (*.state);;All files (*)</source>
        <translation>Presets (*.vstpreset);;Reine Zustände (*.state);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Load State...</source>
        <translation>Zustand &amp;laden ...</translation>
    </message>
    <message>
        <source>&amp;Save State...</source>
        <translation>Zustand &amp;speichern ...</translation>
    </message>
    <message>
        <source>&amp;Reset to Defaults</source>
        <translation>&amp;Auf Vorgaben zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>&amp;Actual Size</source>
        <translation>&amp;Originalgröße</translation>
    </message>
    <message>
        <source>&amp;Mixer</source>
        <translation>&amp;Mischpult</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Editor</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>Vergrößerung</translation>
    </message>
    <message>
        <source>Stereo</source>
        <translation>Stereo</translation>
    </message>
    <message>
        <source>Mono</source>
        <translation>Mono</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>Kanal</translation>
    </message>
    <message>
        <source>Sampling rate</source>
        <translation>Abtastrate</translation>
    </message>
    <message>
        <source>Circular</source>
        <translation>Kreisförmig</translation>
    </message>
    <message>
        <source>Relative circular</source>
        <translation>Relativ kreisförmig</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>Geradlinig</translation>
    </message>
    <message>
        <source>Relative</source>
        <translation>Relativ</translation>
    </message>
    <message>
        <source>Jump</source>
        <translation>Springend</translation>
    </message>
    <message>
        <source>Touch</source>
        <translation>Greifend</translation>
    </message>
    <message>
        <source>Ramp</source>
        <translation>Gleitend</translation>
    </message>
    <message>
        <source>Dials</source>
        <translation>Drehregler</translation>
    </message>
    <message>
        <source>Sliders</source>
        <translation>Schieberegler</translation>
    </message>
    <message>
        <source>Channels %1 + %2 - Equalizer</source>
        <translation>Kanäle %1 + %2 - Equalizer</translation>
    </message>
    <message>
        <source>Channel %1 - Equalizer</source>
        <translation>Kanal %1 - Equalizer</translation>
    </message>
    <message>
        <source>Load State</source>
        <translation>Zustand laden</translation>
    </message>
    <message>
        <source>States and presets (*.state *.vstpreset);;All files (*)</source>
        <translation>Zustände und Presets (*.state *.vstpreset);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Loaded %1.</source>
        <translation>%1 ist geladen.</translation>
    </message>
    <message>
        <source>Save State</source>
        <translation>Zustand speichern</translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <translation>%1 ist gespeichert.</translation>
    </message>
    <message>
        <source>Every parameter is at its default.</source>
        <translation>Alle Parameter stehen auf ihren Vorgaben.</translation>
    </message>
</context>
<context>
    <name>LanguageMenu</name>
    <message>
        <source>&amp;Language</source>
        <translation>&amp;Sprache</translation>
    </message>
</context>
<context>
    <name>MixerWindow</name>
    <message>
        <source>Mixer</source>
        <translation>Mischpult</translation>
    </message>
    <message>
        <source>The plug-in makes no editor for %1.</source>
        <translation>Das Plug-in hat keinen Editor für %1.</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>A double click opens the editor</source>
        <translation>Ein Doppelklick öffnet den Editor</translation>
    </message>
    <message>
        <source>Channels %1 + %2</source>
        <translation>Kanäle %1 + %2</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>Kanal %1</translation>
    </message>
</context>
<context>
    <name>Parameter</name>
    <message>
        <source>Low type</source>
        <translation>Tiefen: Filtertyp</translation>
    </message>
    <message>
        <source>Low frequency</source>
        <translation>Tiefen: Frequenz</translation>
    </message>
    <message>
        <source>Low gain</source>
        <translation>Tiefen: Verstärkung</translation>
    </message>
    <message>
        <source>Low on</source>
        <translation>Tiefen an</translation>
    </message>
    <message>
        <source>Middle 1 quality</source>
        <translation>Mitten 1: Güte</translation>
    </message>
    <message>
        <source>Middle 1 frequency</source>
        <translation>Mitten 1: Frequenz</translation>
    </message>
    <message>
        <source>Middle 1 gain</source>
        <translation>Mitten 1: Verstärkung</translation>
    </message>
    <message>
        <source>Middle 1 on</source>
        <translation>Mitten 1 an</translation>
    </message>
    <message>
        <source>Middle 2 quality</source>
        <translation>Mitten 2: Güte</translation>
    </message>
    <message>
        <source>Middle 2 frequency</source>
        <translation>Mitten 2: Frequenz</translation>
    </message>
    <message>
        <source>Middle 2 gain</source>
        <translation>Mitten 2: Verstärkung</translation>
    </message>
    <message>
        <source>Middle 2 on</source>
        <translation>Mitten 2 an</translation>
    </message>
    <message>
        <source>Middle 3 quality</source>
        <translation>Mitten 3: Güte</translation>
    </message>
    <message>
        <source>Middle 3 frequency</source>
        <translation>Mitten 3: Frequenz</translation>
    </message>
    <message>
        <source>Middle 3 gain</source>
        <translation>Mitten 3: Verstärkung</translation>
    </message>
    <message>
        <source>Middle 3 on</source>
        <translation>Mitten 3 an</translation>
    </message>
    <message>
        <source>Middle 4 quality</source>
        <translation>Mitten 4: Güte</translation>
    </message>
    <message>
        <source>Middle 4 frequency</source>
        <translation>Mitten 4: Frequenz</translation>
    </message>
    <message>
        <source>Middle 4 gain</source>
        <translation>Mitten 4: Verstärkung</translation>
    </message>
    <message>
        <source>Middle 4 on</source>
        <translation>Mitten 4 an</translation>
    </message>
    <message>
        <source>High type</source>
        <translation>Höhen: Filtertyp</translation>
    </message>
    <message>
        <source>High frequency</source>
        <translation>Höhen: Frequenz</translation>
    </message>
    <message>
        <source>High gain</source>
        <translation>Höhen: Verstärkung</translation>
    </message>
    <message>
        <source>High on</source>
        <translation>Höhen an</translation>
    </message>
    <message>
        <source>Input level</source>
        <translation>Eingangspegel</translation>
    </message>
    <message>
        <source>Output level</source>
        <translation>Ausgangspegel</translation>
    </message>
    <message>
        <source>Clean/drive</source>
        <translation>Klar/Drive</translation>
    </message>
</context>
<context>
    <name>ParameterListModel</name>
    <message>
        <source>Parameter</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Raw</source>
        <translation>Rohwert</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no value of %2: type %3.</source>
        <translation>&quot;%1&quot; ist kein Wert für &quot;%2&quot;: möglich ist %3.</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation>%1 oder %2</translation>
    </message>
</context>
<context>
    <name>ZoltaEditor</name>
    <message>
        <source>CLEAN</source>
        <translation>KLAR</translation>
    </message>
    <message>
        <source>DRIVE</source>
        <translation>DRIVE</translation>
    </message>
    <message>
        <source>F</source>
        <translation>F</translation>
    </message>
    <message>
        <source>FLAT</source>
        <translation>PLAN</translation>
    </message>
    <message>
        <source>G</source>
        <translation>G</translation>
    </message>
    <message>
        <source>IN</source>
        <translation>IN</translation>
    </message>
    <message>
        <source>INPUT</source>
        <translation>EINGANG</translation>
    </message>
    <message>
        <source>OUT</source>
        <translation>OUT</translation>
    </message>
    <message>
        <source>OUTPUT</source>
        <translation>AUSGANG</translation>
    </message>
    <message>
        <source>PEAK</source>
        <translation>MAX</translation>
    </message>
    <message>
        <source>Q</source>
        <translation>Q</translation>
    </message>
    <message>
        <source>ZOOM</source>
        <translation>LUPE</translation>
    </message>
</context>
</TS>
