<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-License-Identifier: GPL-3.0-or-later -->
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Application</name>
    <message>
        <source>Quit Without Saving</source>
        <translation>Beenden, ohne zu speichern</translation>
    </message>
    <message>
        <source>The plug-in has no editor for channel %1.</source>
        <translation>Das Plug-in hat keinen Editor für Kanal %1.</translation>
    </message>
    <message>
        <source>Save Anyway</source>
        <translation>Trotzdem speichern</translation>
    </message>
    <message>
        <source>The list cannot be printed: %1.</source>
        <translation>Die Liste lässt sich nicht ausgeben: %1.</translation>
    </message>
    <message>
        <source>Find It...</source>
        <translation>Suchen ...</translation>
    </message>
    <message>
        <source>The session&apos;s sound file %1 is not there any more.</source>
        <translation>Die Audiodatei %1 der Sitzung ist nicht mehr da.</translation>
    </message>
    <message>
        <source>The desktop equalizer is already running.</source>
        <translation>Der Desktop-Equalizer läuft bereits.</translation>
    </message>
</context>
<context>
    <name>EditorToolBar</name>
    <message>
        <source>Editor</source>
        <translation>Editor</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>UI zoom</source>
        <translation>UI-Zoom</translation>
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
        <translation>Linear</translation>
    </message>
    <message>
        <source>Relative</source>
        <translation>Relativ</translation>
    </message>
    <message>
        <source>Jump</source>
        <translation>Springen</translation>
    </message>
    <message>
        <source>Touch</source>
        <translation>Berühren</translation>
    </message>
    <message>
        <source>Ramp</source>
        <translation>Rampe</translation>
    </message>
    <message>
        <source>Dials</source>
        <translation>Regler</translation>
    </message>
    <message>
        <source>Sliders</source>
        <translation>Fader</translation>
    </message>
    <message>
        <source>The curve is drawn for the rate that the sound device runs at. It can be chosen while nothing plays.</source>
        <translation>Die Kurve gilt für die Abtastrate, mit der das Audiogerät läuft. Wählen lässt sie sich, solange nichts spielt.</translation>
    </message>
    <message>
        <source>The rate that the curve is drawn for</source>
        <translation>Die Abtastrate, für die die Kurve gilt</translation>
    </message>
</context>
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
        <source>Reset to &amp;Defaults</source>
        <translation>Auf &amp;Vorgaben zurücksetzen</translation>
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
        <source>Measured &amp;Response</source>
        <translation>Gemessener &amp;Frequenzgang</translation>
    </message>
    <message>
        <source>&amp;Parameters</source>
        <translation>&amp;Parameter</translation>
    </message>
    <message>
        <source>Measured response</source>
        <translation>Gemessener Frequenzgang</translation>
    </message>
    <message>
        <source>&amp;Mixer</source>
        <translation>&amp;Mischpult</translation>
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
        <source>&amp;Copy Settings</source>
        <translation>Einstellungen &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Paste Settings</source>
        <translation>Einstellungen &amp;einfügen</translation>
    </message>
    <message>
        <source>&amp;Presets</source>
        <translation>&amp;Presets</translation>
    </message>
    <message>
        <source>Copy A &amp;to B</source>
        <translation>A &amp;nach B kopieren</translation>
    </message>
    <message>
        <source>Copy B t&amp;o A</source>
        <translation>B n&amp;ach A kopieren</translation>
    </message>
    <message>
        <source>No audio</source>
        <translation>Kein Ton</translation>
    </message>
    <message>
        <source>S&amp;witch between A and B</source>
        <translation>Zwischen A und B wech&amp;seln</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>&amp;UI Zoom</source>
        <translation>&amp;UI-Zoom</translation>
    </message>
    <message>
        <source>&amp;Graph Range</source>
        <translation>&amp;Bereich der Kurve</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Transport</source>
        <translation>&amp;Transport</translation>
    </message>
    <message>
        <source>&amp;Open Audio...</source>
        <translation>&amp;Audiodatei öffnen ...</translation>
    </message>
    <message>
        <source>Desktop Equalizer</source>
        <translation>Desktop-Equalizer</translation>
    </message>
    <message>
        <source>Plays to %1</source>
        <translation>Wiedergabe über %1</translation>
    </message>
    <message>
        <source>A&amp;nalyzer</source>
        <translation>&amp;Analyzer</translation>
    </message>
    <message>
        <source>Analyzer</source>
        <translation>Analyzer</translation>
    </message>
</context>
<context>
    <name>ChannelCountMenu</name>
    <message>
        <source>&amp;Number of Channels</source>
        <translation>&amp;Anzahl der Kanäle</translation>
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
        <source>&amp;Channel</source>
        <translation>&amp;Kanal</translation>
    </message>
    <message>
        <source>&amp;Copy Equalizer</source>
        <translation>Equalizer &amp;kopieren</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Open Editor</source>
        <translation>Editor ö&amp;ffnen</translation>
    </message>
    <message>
        <source>&amp;Paste Equalizer</source>
        <translation>Equalizer &amp;einfügen</translation>
    </message>
    <message>
        <source>&amp;Rename...</source>
        <translation>&amp;Umbenennen ...</translation>
    </message>
    <message>
        <source>Name of %1</source>
        <translation>Name von %1</translation>
    </message>
    <message>
        <source>R&amp;eset Equalizer</source>
        <translation>Equalizer &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Transport</source>
        <translation>&amp;Transport</translation>
    </message>
</context>
<context>
    <name>Parameter</name>
    <message>
        <source>Low type</source>
        <translation>Tiefen: Typ</translation>
    </message>
    <message>
        <source>Low frequency</source>
        <translation>Tiefen: Frequenz</translation>
    </message>
    <message>
        <source>Low gain</source>
        <translation>Tiefen: Gain</translation>
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
        <translation>Mitten 1: Gain</translation>
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
        <translation>Mitten 2: Gain</translation>
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
        <translation>Mitten 3: Gain</translation>
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
        <translation>Mitten 4: Gain</translation>
    </message>
    <message>
        <source>Middle 4 on</source>
        <translation>Mitten 4 an</translation>
    </message>
    <message>
        <source>High type</source>
        <translation>Höhen: Typ</translation>
    </message>
    <message>
        <source>High frequency</source>
        <translation>Höhen: Frequenz</translation>
    </message>
    <message>
        <source>High gain</source>
        <translation>Höhen: Gain</translation>
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
        <translation>Clean/Drive</translation>
    </message>
    <message>
        <source>Equalizer on</source>
        <translation>Equalizer an</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Pegel</translation>
    </message>
    <message>
        <source>Mono/stereo</source>
        <translation>Mono/Stereo</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>Solo</source>
        <translation>Solo</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>Balance</translation>
    </message>
    <message>
        <source>Master level</source>
        <translation>Summe: Pegel</translation>
    </message>
    <message>
        <source>Master mute</source>
        <translation>Summe: Stummschaltung</translation>
    </message>
    <message>
        <source>Dim</source>
        <translation>Dim</translation>
    </message>
    <message>
        <source>Mono</source>
        <translation>Mono</translation>
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
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation>%1 oder %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a value of %2: enter %3 or %4.</source>
        <translation>„%1“ ist kein Wert für „%2“: möglich ist %3 oder %4.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a value of %2: enter a value from %3 to %4.</source>
        <translation>„%1“ ist kein Wert für „%2“: möglich ist ein Wert von %3 bis %4.</translation>
    </message>
</context>
<context>
    <name>ZoltaEditor</name>
    <message>
        <source>CLEAN</source>
        <translation>CLEAN</translation>
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
        <translation>FLAT</translation>
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
        <translation>INPUT</translation>
    </message>
    <message>
        <source>OUT</source>
        <translation>OUT</translation>
    </message>
    <message>
        <source>OUTPUT</source>
        <translation>OUTPUT</translation>
    </message>
    <message>
        <source>PEAK</source>
        <translation>PEAK</translation>
    </message>
    <message>
        <source>Q</source>
        <translation>Q</translation>
    </message>
    <message>
        <source>ZOOM</source>
        <translation>ZOOM</translation>
    </message>
    <message>
        <source>Low type</source>
        <translation>Tiefen: Typ</translation>
    </message>
    <message>
        <source>Low frequency</source>
        <translation>Tiefen: Frequenz</translation>
    </message>
    <message>
        <source>Low gain</source>
        <translation>Tiefen: Gain</translation>
    </message>
    <message>
        <source>Low band on</source>
        <translation>Tiefenband an</translation>
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
        <translation>Mitten 1: Gain</translation>
    </message>
    <message>
        <source>Middle 1 band on</source>
        <translation>Mittenband 1 an</translation>
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
        <translation>Mitten 2: Gain</translation>
    </message>
    <message>
        <source>Middle 2 band on</source>
        <translation>Mittenband 2 an</translation>
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
        <translation>Mitten 3: Gain</translation>
    </message>
    <message>
        <source>Middle 3 band on</source>
        <translation>Mittenband 3 an</translation>
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
        <translation>Mitten 4: Gain</translation>
    </message>
    <message>
        <source>Middle 4 band on</source>
        <translation>Mittenband 4 an</translation>
    </message>
    <message>
        <source>High type</source>
        <translation>Höhen: Typ</translation>
    </message>
    <message>
        <source>High frequency</source>
        <translation>Höhen: Frequenz</translation>
    </message>
    <message>
        <source>High gain</source>
        <translation>Höhen: Gain</translation>
    </message>
    <message>
        <source>High band on</source>
        <translation>Höhenband an</translation>
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
        <source>Drive</source>
        <translation>Drive</translation>
    </message>
    <message>
        <source>About Zolta</source>
        <translation>Über Zolta</translation>
    </message>
    <message>
        <source>Zoom the curve in</source>
        <translation>Kurvenzoom: vergrößern</translation>
    </message>
    <message>
        <source>Zoom the curve out</source>
        <translation>Kurvenzoom: verkleinern</translation>
    </message>
    <message>
        <source>Spectrum</source>
        <translation>Spektrum</translation>
    </message>
    <message>
        <source>Flat</source>
        <translation>Flat</translation>
    </message>
    <message>
        <source>Input meter, left</source>
        <translation>Pegelanzeige Eingang, links</translation>
    </message>
    <message>
        <source>Input meter, right</source>
        <translation>Pegelanzeige Eingang, rechts</translation>
    </message>
    <message>
        <source>Input meter</source>
        <translation>Pegelanzeige Eingang</translation>
    </message>
    <message>
        <source>Output meter, left</source>
        <translation>Pegelanzeige Ausgang, links</translation>
    </message>
    <message>
        <source>Output meter, right</source>
        <translation>Pegelanzeige Ausgang, rechts</translation>
    </message>
    <message>
        <source>Output meter</source>
        <translation>Pegelanzeige Ausgang</translation>
    </message>
</context>
<context>
    <name>ChannelCompare</name>
    <message>
        <source>Choose %1</source>
        <translation>%1 wählen</translation>
    </message>
    <message>
        <source>Copy %1 to %2</source>
        <translation>%1 nach %2 kopieren</translation>
    </message>
</context>
<context>
    <name>ChannelText</name>
    <message>
        <source>The value of &quot;%1&quot; must be text.</source>
        <translation>Der Wert von „%1“ muss ein Text sein.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a value of &quot;%2&quot;.</source>
        <translation>„%1“ ist kein Wert für „%2“.</translation>
    </message>
    <message>
        <source>Cannot paste. The clipboard holds no equalizer settings.</source>
        <translation>Einfügen nicht möglich. Die Zwischenablage enthält keine Equalizer-Einstellungen.</translation>
    </message>
    <message>
        <source>Cannot paste. %1</source>
        <translation>Einfügen nicht möglich. %1</translation>
    </message>
</context>
<context>
    <name>MixerModel</name>
    <message>
        <source>Channel %1</source>
        <translation>Kanal %1</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Number of Channels</source>
        <translation>Anzahl der Kanäle</translation>
    </message>
</context>
<context>
    <name>EditHistory</name>
    <message>
        <source>%1 parameters</source>
        <translation>%1 Parameter</translation>
    </message>
</context>
<context>
    <name>EditorSession</name>
    <message>
        <source>Load %1</source>
        <translation>%1 laden</translation>
    </message>
    <message>
        <source>The plug-in did not accept the state in %1.</source>
        <translation>Das Plug-in hat den Zustand aus %1 nicht angenommen.</translation>
    </message>
    <message>
        <source>The state file %1 cannot be written: the plug-in gave no state.</source>
        <translation>Die Zustandsdatei %1 lässt sich nicht schreiben: Das Plug-in hat keinen Zustand geliefert.</translation>
    </message>
</context>
<context>
    <name>FactoryPreset</name>
    <message>
        <source>A gentle smile</source>
        <translation>Ein sanftes Lächeln</translation>
    </message>
    <message>
        <source>A little more below, a little less above</source>
        <translation>Unten etwas mehr, oben etwas weniger</translation>
    </message>
    <message>
        <source>Acoustic guitar</source>
        <translation>Akustische Gitarre</translation>
    </message>
    <message>
        <source>Air</source>
        <translation>Luft</translation>
    </message>
    <message>
        <source>Bass guitar</source>
        <translation>E-Bass</translation>
    </message>
    <message>
        <source>Bite without fizz</source>
        <translation>Biss ohne Sirren</translation>
    </message>
    <message>
        <source>Body, crack and wires</source>
        <translation>Körper, Knall und Teppich</translation>
    </message>
    <message>
        <source>Clears the chest and brings the words forward</source>
        <translation>Nimmt den Brustton zurück und holt die Worte nach vorn</translation>
    </message>
    <message>
        <source>De-mud</source>
        <translation>Weniger Mulm</translation>
    </message>
    <message>
        <source>Electric guitar</source>
        <translation>E-Gitarre</translation>
    </message>
    <message>
        <source>For a clear announcer</source>
        <translation>Für eine klare Ansage</translation>
    </message>
    <message>
        <source>Kick</source>
        <translation>Bassdrum</translation>
    </message>
    <message>
        <source>Leaves the drums below to their own microphones</source>
        <translation>Überlässt die Trommeln ihren eigenen Mikrofonen</translation>
    </message>
    <message>
        <source>Less boom, more strings</source>
        <translation>Weniger Dröhnen, mehr Saiten</translation>
    </message>
    <message>
        <source>Low cut</source>
        <translation>Trittschallfilter</translation>
    </message>
    <message>
        <source>Makes room between 200 and 500 Hz</source>
        <translation>Schafft Platz zwischen 200 und 500 Hz</translation>
    </message>
    <message>
        <source>Opens the top</source>
        <translation>Öffnet die Höhen</translation>
    </message>
    <message>
        <source>Overheads</source>
        <translation>Overheads</translation>
    </message>
    <message>
        <source>Piano</source>
        <translation>Klavier</translation>
    </message>
    <message>
        <source>Round and still heard on small speakers</source>
        <translation>Rund und auch auf kleinen Lautsprechern zu hören</translation>
    </message>
    <message>
        <source>Rumble and steps away, nothing else</source>
        <translation>Nur Rumpeln und Trittschall weg</translation>
    </message>
    <message>
        <source>Snare</source>
        <translation>Snare</translation>
    </message>
    <message>
        <source>Speech</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Takes the edge off sharp consonants</source>
        <translation>Nimmt scharfen Konsonanten die Spitze</translation>
    </message>
    <message>
        <source>Telephone</source>
        <translation>Telefon</translation>
    </message>
    <message>
        <source>The voice on the line</source>
        <translation>Die Stimme in der Leitung</translation>
    </message>
    <message>
        <source>Vocal de-esser</source>
        <translation>Gesang entschärfen</translation>
    </message>
    <message>
        <source>Vocal presence</source>
        <translation>Gesang mit Präsenz</translation>
    </message>
    <message>
        <source>Warmth</source>
        <translation>Wärme</translation>
    </message>
    <message>
        <source>Weight below, beater above, no cardboard</source>
        <translation>Unten Gewicht, oben Anschlag, keine Pappe</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>Pasted.</source>
        <translation>Eingefügt.</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Every parameter is at its default.</source>
        <translation>Alle Parameter stehen auf ihren Vorgaben.</translation>
    </message>
</context>
<context>
    <name>MixerStrip</name>
    <message>
        <source>%1 mono</source>
        <translation>%1 mono</translation>
    </message>
    <message>
        <source>%1 stereo</source>
        <translation>%1 stereo</translation>
    </message>
    <message>
        <source>A double click renames the channel</source>
        <translation>Ein Doppelklick benennt den Kanal um</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>Kanal %1</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>Curve of %1</source>
        <translation>Kurve von %1</translation>
    </message>
    <message>
        <source>Editor of %1</source>
        <translation>Editor von %1</translation>
    </message>
    <message>
        <source>Equalizer of %1</source>
        <translation>Equalizer von %1</translation>
    </message>
    <message>
        <source>Fader of %1</source>
        <translation>Fader von %1</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Input %1</source>
        <translation>Eingang %1</translation>
    </message>
    <message>
        <source>Level of %1</source>
        <translation>Pegel von %1</translation>
    </message>
    <message>
        <source>Meter of channel %1</source>
        <translation>Pegelanzeige von Kanal %1</translation>
    </message>
    <message>
        <source>Mono or stereo of %1</source>
        <translation>Mono oder Stereo von %1</translation>
    </message>
    <message>
        <source>Mute of %1</source>
        <translation>Stummschaltung von %1</translation>
    </message>
    <message>
        <source>Name of %1</source>
        <translation>Name von %1</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Opens the editor</source>
        <translation>Öffnet den Editor</translation>
    </message>
    <message>
        <source>Peak of channel %1</source>
        <translation>Spitzenpegel von Kanal %1</translation>
    </message>
    <message>
        <source>Solo of %1</source>
        <translation>Solo von %1</translation>
    </message>
    <message>
        <source>Source of %1</source>
        <translation>Quelle von %1</translation>
    </message>
    <message>
        <source>Test signal</source>
        <translation>Testsignal</translation>
    </message>
    <message>
        <source>Highest level of %1</source>
        <translation>Höchster Pegel von %1</translation>
    </message>
    <message>
        <source>Balance of %1</source>
        <translation>Balance von %1</translation>
    </message>
    <message>
        <source>Silenced</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>Ch. %1</source>
        <translation>Kan. %1</translation>
    </message>
</context>
<context>
    <name>PresetFolder</name>
    <message>
        <source>A preset needs a name.</source>
        <translation>Ein Preset braucht einen Namen.</translation>
    </message>
    <message>
        <source>The preset %1 cannot be deleted: %2.</source>
        <translation>Das Preset %1 lässt sich nicht löschen: %2.</translation>
    </message>
    <message>
        <source>A preset's name can have up to %1 characters.</source>
        <translation>Der Name eines Presets hat höchstens %1 Zeichen.</translation>
    </message>
    <message>
        <source>A preset's name cannot begin with a full stop or contain any of these: %1</source>
        <translation>Der Name eines Presets darf nicht mit einem Punkt beginnen und keines dieser Zeichen enthalten: %1</translation>
    </message>
    <message>
        <source>The presets' folder %1 cannot be created. Check whether its parent folder can be written.</source>
        <translation>Der Ordner %1 für die Presets lässt sich nicht anlegen. Ist der übergeordnete Ordner beschreibbar?</translation>
    </message>
    <message>
        <source>The preset %1 cannot be renamed: %2.</source>
        <translation>Das Preset %1 lässt sich nicht umbenennen: %2.</translation>
    </message>
</context>
<context>
    <name>PresetMenu</name>
    <message>
        <source>&amp;Delete</source>
        <translation>&amp;Löschen</translation>
    </message>
    <message>
        <source>&amp;Factory</source>
        <translation>&amp;Werk</translation>
    </message>
    <message>
        <source>&amp;Save as Preset...</source>
        <translation>Als Preset &amp;speichern ...</translation>
    </message>
    <message>
        <source>Save as Preset</source>
        <translation>Als Preset speichern</translation>
    </message>
    <message>
        <source>A preset named %1 already exists. Replace it?</source>
        <translation>Ein Preset mit dem Namen %1 gibt es schon. Ersetzen?</translation>
    </message>
    <message>
        <source>Name of the preset</source>
        <translation>Name des Presets</translation>
    </message>
    <message>
        <source>Delete Preset</source>
        <translation>Preset löschen</translation>
    </message>
    <message>
        <source>Delete the preset %1?</source>
        <translation>Preset %1 löschen?</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>&amp;Voriges</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Nächstes</translation>
    </message>
    <message>
        <source>Save Preset A&amp;gain</source>
        <translation>Preset &amp;erneut speichern</translation>
    </message>
    <message>
        <source>&amp;Rename...</source>
        <translation>&amp;Umbenennen ...</translation>
    </message>
    <message>
        <source>Show F&amp;older</source>
        <translation>&amp;Ordner zeigen</translation>
    </message>
    <message>
        <source>Rename Preset</source>
        <translation>Preset umbenennen</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
</context>
<context>
    <name>ResponseView</name>
    <message>
        <source>The equalizer is off</source>
        <translation>Der Equalizer ist aus</translation>
    </message>
    <message>
        <source>Largest difference: %1 dB</source>
        <translation>Größter Unterschied: %1 dB</translation>
    </message>
    <message>
        <source>Drawn</source>
        <translation>Gezeichnet</translation>
    </message>
    <message>
        <source>Measured</source>
        <translation>Gemessen</translation>
    </message>
</context>
<context>
    <name>SessionFile</name>
    <message>
        <source>The session %1 cannot be read: %2.</source>
        <translation>Die Sitzung %1 lässt sich nicht lesen: %2.</translation>
    </message>
    <message>
        <source>The session %1 is damaged. %2</source>
        <translation>Die Sitzung %1 ist beschädigt. %2</translation>
    </message>
    <message>
        <source>The file is not valid JSON: %1 at byte %2.</source>
        <translation>Die Datei ist kein gültiges JSON: %1 bei Byte %2.</translation>
    </message>
    <message>
        <source>The session %1 cannot be read. %2</source>
        <translation>Die Sitzung %1 lässt sich nicht lesen. %2</translation>
    </message>
    <message>
        <source>The session %1 cannot be read because it is not a regular file.</source>
        <translation>Die Sitzung %1 lässt sich nicht lesen, weil sie keine gewöhnliche Datei ist.</translation>
    </message>
    <message>
        <source>The file is too long.</source>
        <translation>Die Datei ist zu lang.</translation>
    </message>
    <message>
        <source>The file is left alone, and nothing will be saved.</source>
        <translation>Die Datei bleibt, wie sie ist, und nichts wird gespeichert.</translation>
    </message>
    <message>
        <source>Another program has the session %1 open, as its lock file %2 says. Changes made here will not be saved.</source>
        <translation>Ein anderes Programm hat die Sitzung %1 geöffnet, wie ihre Sperrdatei %2 angibt. Was hier geändert wird, wird nicht gespeichert.</translation>
    </message>
    <message>
        <source>The session cannot be saved. %1</source>
        <translation>Die Sitzung lässt sich nicht speichern. %1</translation>
    </message>
    <message>
        <source>The file cannot be renamed, so it is left alone, and nothing will be saved.</source>
        <translation>Die Datei lässt sich nicht umbenennen; sie bleibt deshalb, wie sie ist, und nichts wird gespeichert.</translation>
    </message>
    <message>
        <source>The session is not used, and the file is kept as %1.</source>
        <translation>Die Sitzung wird nicht verwendet, und die Datei bleibt als %1 erhalten.</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
</context>
<context>
    <name>SettingsFile</name>
    <message>
        <source>&quot;%1&quot; is not a channel with settings.</source>
        <translation>„%1“ ist kein Kanal mit Einstellungen.</translation>
    </message>
    <message>
        <source>The file is not a settings file of version %1.</source>
        <translation>Die Datei ist keine Einstellungsdatei der Version %1.</translation>
    </message>
    <message>
        <source>The file has no channels.</source>
        <translation>Die Datei enthält keine Kanäle.</translation>
    </message>
    <message>
        <source>The file is too long.</source>
        <translation>Die Datei ist zu lang.</translation>
    </message>
    <message>
        <source>The file is not valid JSON: %1 at byte %2.</source>
        <translation>Die Datei ist kein gültiges JSON: %1 bei Byte %2.</translation>
    </message>
    <message>
        <source>The editors' settings in %1 cannot be read because %1 is not a regular file. No settings will be saved.</source>
        <translation>Die Einstellungen der Editoren in %1 lassen sich nicht lesen, weil %1 keine gewöhnliche Datei ist. Es werden keine Einstellungen gespeichert.</translation>
    </message>
    <message>
        <source>The editors' settings in %1 cannot be read: %2. No settings will be saved.</source>
        <translation>Die Einstellungen der Editoren in %1 lassen sich nicht lesen: %2. Es werden keine Einstellungen gespeichert.</translation>
    </message>
    <message>
        <source>The editors' settings in %1 were saved by a later version of this program. They are left alone, and no settings will be saved.</source>
        <translation>Die Einstellungen der Editoren in %1 wurden von einer neueren Version dieses Programms gespeichert. Sie bleiben, wie sie sind, und es werden keine Einstellungen gespeichert.</translation>
    </message>
    <message>
        <source>The editors' settings cannot be saved. %1</source>
        <translation>Die Einstellungen der Editoren lassen sich nicht speichern. %1</translation>
    </message>
    <message>
        <source>The editors' settings in %1 are damaged and ignored. %2 The file is kept as %3.</source>
        <translation>Die Einstellungen der Editoren in %1 sind beschädigt und werden nicht verwendet. %2 Die Datei bleibt als %3 erhalten.</translation>
    </message>
    <message>
        <source>The editors' settings in %1 are damaged and ignored. %2 The file cannot be renamed, so no settings will be saved.</source>
        <translation>Die Einstellungen der Editoren in %1 sind beschädigt und werden nicht verwendet. %2 Die Datei lässt sich nicht umbenennen, deshalb werden keine Einstellungen gespeichert.</translation>
    </message>
</context>
<context>
    <name>TransportBar</name>
    <message>
        <source>Audio error</source>
        <translation>Audiofehler</translation>
    </message>
    <message>
        <source>No audio</source>
        <translation>Kein Ton</translation>
    </message>
    <message>
        <source>No device</source>
        <translation>Kein Gerät</translation>
    </message>
    <message>
        <source>No file</source>
        <translation>Keine Datei</translation>
    </message>
    <message>
        <source>Open sound file</source>
        <translation>Audiodatei öffnen</translation>
    </message>
    <message>
        <source>Output device</source>
        <translation>Ausgabegerät</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>Wiedergabe</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Waiting for device</source>
        <translation>Warte auf Gerät</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>Schleife</translation>
    </message>
    <message>
        <source>Return to the start</source>
        <translation>Zum Anfang</translation>
    </message>
</context>
<context>
    <name>AudioDevices</name>
    <message>
        <source>There is no sound device &quot;%1&quot;; --devices shows them all.</source>
        <translation>Es gibt kein Audiogerät „%1“; --devices zeigt alle.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; may mean several sound devices: %2.</source>
        <translation>„%1“ trifft auf mehrere Audiogeräte zu: %2.</translation>
    </message>
    <message>
        <source>The sound device %1 cannot be used: it does not run at %2 Hz.</source>
        <translation>Das Audiogerät %1 lässt sich nicht verwenden: Es läuft nicht mit %2 Hz.</translation>
    </message>
    <message>
        <source>The sound device %1 cannot be used: it has no outputs.</source>
        <translation>Das Audiogerät %1 lässt sich nicht verwenden: Es hat keine Ausgänge.</translation>
    </message>
    <message>
        <source>The sound device %1 cannot be used: neither it nor the default device has inputs.</source>
        <translation>Das Audiogerät %1 lässt sich nicht verwenden: Weder dieses noch das Standardgerät hat Eingänge.</translation>
    </message>
    <message>
        <source>There is no sound device to play on. Connect one, or start the sound server (PipeWire, PulseAudio or JACK), and play again.</source>
        <translation>Es gibt kein Audiogerät für die Wiedergabe. Schließen Sie eines an, oder starten Sie den Audioserver (PipeWire, PulseAudio oder JACK), und spielen Sie noch einmal ab.</translation>
    </message>
</context>
<context>
    <name>AudioReader</name>
    <message>
        <source>The sound file %1 cannot be read: it is a folder.</source>
        <translation>Die Audiodatei %1 lässt sich nicht lesen: Sie ist ein Ordner.</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read: it is not a regular file.</source>
        <translation>Die Audiodatei %1 lässt sich nicht lesen: Sie ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read: it is longer than its header can state.</source>
        <translation>Die Audiodatei %1 lässt sich nicht lesen: Sie ist länger, als ihr Header angeben kann.</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read. It is cut short: its header promises %2 bytes of samples, but it holds %3.</source>
        <translation>Die Audiodatei %1 lässt sich nicht lesen. Sie ist abgeschnitten: Ihr Header gibt %2 Bytes an Samples an, sie enthält aber %3.</translation>
    </message>
    <message>
        <source>The file %1 is not a sound file that can be read.</source>
        <translation>Die Datei %1 ist keine lesbare Audiodatei.</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read. It is cut short: its last page is missing.</source>
        <translation>Die Audiodatei %1 lässt sich nicht lesen. Sie ist abgeschnitten: Ihre letzte Seite fehlt.</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read. It is cut short: it ends after %2 of %3 frames.</source>
        <translation>Die Audiodatei %1 lässt sich nicht lesen. Sie ist abgeschnitten: Sie endet nach %2 von %3 Frames.</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read: it is damaged.</source>
        <translation>Die Audiodatei %1 lässt sich nicht lesen: Sie ist beschädigt.</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read: %2.</source>
        <translation>Die Audiodatei %1 lässt sich nicht lesen: %2.</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read: it holds several streams one after the other.</source>
        <translation>Die Audiodatei %1 lässt sich nicht lesen: Sie enthält mehrere Streams hintereinander.</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read: it is damaged at byte %2.</source>
        <translation>Die Audiodatei %1 lässt sich nicht lesen: Sie ist bei Byte %2 beschädigt.</translation>
    </message>
</context>
<context>
    <name>AudioRenderer</name>
    <message>
        <source>The sound file %1 cannot be written: it is also the input file.</source>
        <translation>Die Audiodatei %1 lässt sich nicht schreiben: Sie ist auch die Eingabedatei.</translation>
    </message>
    <message>
        <source>Wrote %1: %2 seconds, %3 Hz, channels: %4.</source>
        <translation>%1 geschrieben: %2 Sekunden, %3 Hz, Kanäle: %4.</translation>
    </message>
</context>
<context>
    <name>AudioSession</name>
    <message>
        <source>There is no sound file to play.</source>
        <translation>Es gibt keine Audiodatei zum Abspielen.</translation>
    </message>
    <message>
        <source>The sound file %1 has a sampling rate of %2 Hz and cannot be played at %3 Hz.</source>
        <translation>Die Audiodatei %1 hat eine Abtastrate von %2 Hz und lässt sich nicht mit %3 Hz abspielen.</translation>
    </message>
    <message>
        <source>The sound device %1 is not responding.</source>
        <translation>Das Audiogerät %1 antwortet nicht.</translation>
    </message>
</context>
<context>
    <name>AudioWriter</name>
    <message>
        <source>The sound file %1 cannot be written: it is a folder.</source>
        <translation>Die Audiodatei %1 lässt sich nicht schreiben: Sie ist ein Ordner.</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be written: it is not a regular file.</source>
        <translation>Die Audiodatei %1 lässt sich nicht schreiben: Sie ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be written: %2.</source>
        <translation>Die Audiodatei %1 lässt sich nicht schreiben: %2.</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be written: its encoder failed.</source>
        <translation>Die Audiodatei %1 lässt sich nicht schreiben: Der Encoder ist gescheitert.</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be written: its format does not take %2 channels at %3 Hz.</source>
        <translation>Die Audiodatei %1 lässt sich nicht schreiben: Ihr Format lässt %2 Kanäle bei %3 Hz nicht zu.</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>%1 cannot be combined with %2.</source>
        <translation>%1 lässt sich nicht mit %2 kombinieren.</translation>
    </message>
    <message>
        <source>%1 can only be used with %2.</source>
        <translation>%1 geht nur zusammen mit %2.</translation>
    </message>
    <message>
        <source>%1 can only be used with %2 or %3.</source>
        <translation>%1 geht nur zusammen mit %2 oder %3.</translation>
    </message>
    <message>
        <source>--render must be followed by the names of two files, IN and OUT.</source>
        <translation>Auf --render müssen die Namen zweier Dateien folgen, IN und OUT.</translation>
    </message>
    <message>
        <source>The name of the file to render must end in .wav, .flac or .ogg; &quot;%1&quot; does not.</source>
        <translation>Der Name der Ausgabedatei muss auf .wav, .flac oder .ogg enden; „%1“ tut das nicht.</translation>
    </message>
    <message>
        <source>--float can only be used for a file whose name ends in .wav; &quot;%1&quot; does not.</source>
        <translation>--float geht nur für eine Datei, deren Name auf .wav endet; „%1“ tut das nicht.</translation>
    </message>
    <message>
        <source>--render with --channel also needs --session; without one, all channels have the same settings.</source>
        <translation>--render mit --channel braucht auch --session; ohne Sitzung haben alle Kanäle dieselben Einstellungen.</translation>
    </message>
    <message>
        <source>The argument &quot;%1&quot; is not valid UTF-8. Rename the file, or use another one.</source>
        <translation>Das Argument „%1“ ist kein gültiges UTF-8. Die Datei umbenennen oder eine andere verwenden.</translation>
    </message>
    <message>
        <source>Exit codes: 0 done, 1 a file or the plug-in has an error, 2 usage error.
</source>
        <translation>Rückgabewerte: 0 erledigt, 1 Fehler in einer Datei oder im Plug-in, 2 Fehler im Aufruf.
</translation>
    </message>
    <message>
        <source>There is no display to open a window on (DISPLAY and WAYLAND_DISPLAY are not set). Without one, use --list, --save-state FILE, --screenshot FILE.png, --render IN OUT or --help.</source>
        <translation>Es gibt keine Anzeige, auf der sich ein Fenster öffnen lässt (weder DISPLAY noch WAYLAND_DISPLAY ist gesetzt). Ohne Anzeige gehen --list, --save-state FILE, --screenshot FILE.png, --render IN OUT oder --help.</translation>
    </message>
    <message>
        <source>the editor's library (default: ../lib/zolta/libZolta.so, seen from this program)</source>
        <translation>die Bibliothek des Editors (Vorgabe: ../lib/zolta/libZolta.so, von diesem Programm aus gesehen)</translation>
    </message>
    <message>
        <source>the channel alone instead of its stereo pair</source>
        <translation>nur der Kanal statt seines Stereopaars</translation>
    </message>
    <message>
        <source>zoom, 0.5 to 4 (default: 1)</source>
        <translation>Zoom, 0.5 bis 4 (Vorgabe: 1)</translation>
    </message>
    <message>
        <source>sampling rate of the curve, 1000 to 768000 (default: 48000)</source>
        <translation>Abtastrate der Kurve, 1000 bis 768000 (Vorgabe: 48000)</translation>
    </message>
    <message>
        <source>the session to restore and to save at the end (default: with a window, the one in the user's data; without one, none; without a window a session is only read)</source>
        <translation>die Sitzung, die geladen und am Ende gespeichert wird (Vorgabe: mit Fenster die in den Benutzerdaten, ohne Fenster keine; ohne Fenster wird eine Sitzung nur gelesen)</translation>
    </message>
    <message>
        <source>load the channel's settings: a state of 116 bytes or a .vstpreset</source>
        <translation>die Einstellungen des Kanals laden: ein Zustand von 116 Bytes oder ein .vstpreset</translation>
    </message>
    <message>
        <source>set a parameter as if TEXT were typed, or with NAME=@N to the raw integer N; repeatable, after --state</source>
        <translation>einen Parameter setzen, als wäre TEXT eingetippt, oder mit NAME=@N auf den ganzzahligen Rohwert N; wiederholbar, wirkt nach --state</translation>
    </message>
    <message>
        <source>English, German or Japanese (default: en)</source>
        <translation>Englisch, Deutsch oder Japanisch (Vorgabe: en)</translation>
    </message>
    <message>
        <source>play a WAV, FLAC or OGG file through the channel's equalizer</source>
        <translation>eine WAV-, FLAC- oder OGG-Datei durch den Equalizer des Kanals abspielen</translation>
    </message>
    <message>
        <source>repeat the file</source>
        <translation>die Datei wiederholen</translation>
    </message>
    <message>
        <source>play the sound device's inputs instead</source>
        <translation>stattdessen die Eingänge des Audiogeräts wiedergeben</translation>
    </message>
    <message>
        <source>the sound device, or a part of its name (default: the system's default device)</source>
        <translation>das Audiogerät oder ein Teil seines Namens (Vorgabe: das Standardgerät des Systems)</translation>
    </message>
    <message>
        <source>the device's sampling rate (default: the file's, if the device has it)</source>
        <translation>Abtastrate des Geräts (Vorgabe: die der Datei, wenn das Gerät sie hat)</translation>
    </message>
    <message>
        <source>the device's block size, 16 to 8192 (default: the device's own)</source>
        <translation>Blockgröße des Geräts, 16 bis 8192 (Vorgabe: die des Geräts)</translation>
    </message>
    <message>
        <source>These are carried out in this order, without a window; then the program ends:</source>
        <translation>Diese werden ohne Fenster in dieser Reihenfolge ausgeführt; dann endet das Programm:</translation>
    </message>
    <message>
        <source>print the channel's parameters: name, id, minimum, maximum, default, raw value and text, separated by tabs</source>
        <translation>die Parameter des Kanals ausgeben: Name, Nummer, Minimum, Maximum, Vorgabe, Rohwert und Text, durch Tabulatoren getrennt</translation>
    </message>
    <message>
        <source>write the channel's settings, as a preset if FILE ends in .vstpreset</source>
        <translation>die Einstellungen des Kanals schreiben, als Preset, wenn FILE auf .vstpreset endet</translation>
    </message>
    <message>
        <source>write a picture of the editor</source>
        <translation>ein Bild des Editors schreiben</translation>
    </message>
    <message>
        <source>These do their work alone, without an editor:</source>
        <translation>Diese Optionen arbeiten für sich allein, ohne Editor:</translation>
    </message>
    <message>
        <source>print the sound devices: name, outputs, inputs, preferred rate in Hz and remarks, separated by tabs</source>
        <translation>die Audiogeräte ausgeben: Name, Ausgänge, Eingänge, bevorzugte Abtastrate in Hz und Bemerkungen, durch Tabulatoren getrennt</translation>
    </message>
    <message>
        <source>send a WAV, FLAC or OGG file through the channel's equalizer into a new one whose name ends in .wav, .flac or .ogg; the settings are those of --channel in --session, then --state, then --set</source>
        <translation>eine WAV-, FLAC- oder OGG-Datei durch den Equalizer des Kanals in eine neue schicken, deren Name auf .wav, .flac oder .ogg endet; es gelten die Einstellungen von --channel in --session, dann --state, dann --set</translation>
    </message>
    <message>
        <source>write 32-bit floats into a .wav file, whatever the format of IN</source>
        <translation>32-Bit-Gleitkommawerte in eine .wav-Datei schreiben, gleich welches Format IN hat</translation>
    </message>
    <message>
        <source>--%1 must be one of these: %2. It cannot be &quot;%3&quot;.</source>
        <translation>--%1 muss einer dieser Werte sein: %2. „%3“ ist nicht möglich.</translation>
    </message>
    <message>
        <source>--set %1: &quot;@%2&quot; is not a raw value of %3 (@%4 to @%5).</source>
        <translation>--set %1: „@%2“ ist kein Rohwert für „%3“ (@%4 bis @%5).</translation>
    </message>
    <message>
        <source>--set %1: &quot;%2&quot; is not a value of %3 (%4).</source>
        <translation>--set %1: „%2“ ist kein Wert für „%3“ (%4).</translation>
    </message>
    <message>
        <source>--%1 must be the name of a file.</source>
        <translation>--%1 muss der Name einer Datei sein.</translation>
    </message>
    <message>
        <source>--%1 must be a whole number from %2 to %3, not &quot;%4&quot;.</source>
        <translation>--%1 muss eine ganze Zahl von %2 bis %3 sein, nicht „%4“.</translation>
    </message>
    <message>
        <source>--%1 must be a number from %2 to %3, not &quot;%4&quot;.</source>
        <translation>--%1 muss eine Zahl von %2 bis %3 sein, nicht „%4“.</translation>
    </message>
    <message>
        <source>--set must be NAME=TEXT or NAME=@N, not &quot;%1&quot;.</source>
        <translation>--set muss NAME=TEXT oder NAME=@N sein, nicht „%1“.</translation>
    </message>
    <message>
        <source>--set: there is no parameter &quot;%1&quot;. See --list for all of them.</source>
        <translation>--set: Es gibt keinen Parameter „%1“. --list zeigt alle.</translation>
    </message>
    <message>
        <source>Warning: Samples in %2 that are NaN or larger than %3 and count as 0: %1; the first is in frame %4 of channel %5.</source>
        <translation>Warnung: Samples in %2, die NaN oder größer als %3 sind und als 0 zählen: %1; das erste steht in Frame %4 von Kanal %5.</translation>
    </message>
    <message>
        <source>Warning: Clipped samples in %2: %1; a lower output level or --float avoids clipping.</source>
        <translation>Warnung: Übersteuerte Samples in %2: %1; ein niedrigerer Ausgangspegel oder --float vermeidet das Übersteuern.</translation>
    </message>
    <message>
        <source>The text cannot be printed: %1.</source>
        <translation>Der Text lässt sich nicht ausgeben: %1.</translation>
    </message>
    <message>
        <source>One file too many: &quot;%1&quot;. One sound file can be played, and --render takes two.</source>
        <translation>Eine Datei zu viel: „%1“. Abspielen lässt sich eine Audiodatei, und --render nimmt zwei.</translation>
    </message>
    <message>
        <source>The file %1 exists and is left as it is. Choose another name, or use --overwrite to replace it.</source>
        <translation>Die Datei %1 gibt es schon, und sie bleibt, wie sie ist. Wählen Sie einen anderen Namen, oder ersetzen Sie sie mit --overwrite.</translation>
    </message>
    <message>
        <source>The file %1 exists. Replace it? [y/N]</source>
        <translation>Die Datei %1 gibt es schon. Ersetzen? [j/N]</translation>
    </message>
    <message>
        <source>Usage: zolta-host [options] [SOUND]
A mixer with 2 to 32 channels that opens the channel equalizer&apos;s editor.
</source>
        <translation>Aufruf: zolta-host [Optionen] [SOUND]
Ein Mischpult mit 2 bis 32 Kanälen, das den Editor des Kanal-Equalizers öffnet.
</translation>
    </message>
    <message>
        <source>replace OUT without asking; otherwise a terminal asks, and anything else refuses</source>
        <translation>OUT ersetzen, ohne zu fragen; sonst wird im Terminal gefragt und überall sonst abgelehnt</translation>
    </message>
    <message>
        <source>say which version this is</source>
        <translation>die Version nennen</translation>
    </message>
    <message>
        <source>show this help (also -h)</source>
        <translation>diese Hilfe zeigen (auch -h)</translation>
    </message>
    <message>
        <source>whether the meters move (default: on in windows, where they show each strip&apos;s source; otherwise off; on, a picture shows a test signal after one second)</source>
        <translation>ob sich die Pegelanzeigen bewegen (Vorgabe: on mit Fenstern, wo sie die Quelle jedes Kanalzugs zeigen, sonst off; mit on zeigt ein Bild ein Testsignal nach einer Sekunde)</translation>
    </message>
    <message>
        <source>No window can be opened: the display (DISPLAY or WAYLAND_DISPLAY) does not answer. Log in to a desktop, or set them to its display. Without one, use --list, --save-state FILE, --screenshot FILE.png, --render IN OUT or --help.</source>
        <translation>Es lässt sich kein Fenster öffnen: Die Anzeige (DISPLAY oder WAYLAND_DISPLAY) antwortet nicht. Melden Sie sich an einem Desktop an, oder setzen Sie sie auf dessen Anzeige. Ohne Anzeige gibt es --list, --save-state FILE, --screenshot FILE.png, --render IN OUT und --help.</translation>
    </message>
    <message>
        <source>There is no sound device. Connect one, or start a sound server (PipeWire, PulseAudio or JACK).</source>
        <translation>Es gibt kein Audiogerät. Schließen Sie eines an, oder starten Sie einen Audioserver (PipeWire, PulseAudio oder JACK).</translation>
    </message>
    <message>
        <source>the channel to open, counted from 0 (default: 0); windows count from 1</source>
        <translation>der Kanal, der geöffnet wird, von 0 an gezählt (Vorgabe: 0); Fenster zählen von 1 an</translation>
    </message>
    <message>
        <source>equalize everything that the desktop plays through PipeWire as long as the editor is open, instead of opening the mixer; its settings are kept for the next time</source>
        <translation>alles, was der Desktop über PipeWire abspielt, durch den Equalizer schicken, solange der Editor offen ist, statt das Mischpult zu öffnen; die Einstellungen bleiben für das nächste Mal erhalten</translation>
    </message>
    <message>
        <source>--%1 must be an even number from %2 to %3, not &quot;%4&quot;.</source>
        <translation>--%1 muss eine gerade Zahl von %2 bis %3 sein, nicht „%4“.</translation>
    </message>
    <message>
        <source>--channel must be a whole number from 0 to %1, not &quot;%2&quot;: the mixer has %3 channels.</source>
        <translation>--channel muss eine ganze Zahl von 0 bis %1 sein, nicht „%2“: Das Mischpult hat %3 Kanäle.</translation>
    </message>
    <message>
        <source>how many channels the mixer has, an even number from 2 to 32 (default: as many as the session has; a new one has 8)</source>
        <translation>wie viele Kanäle das Mischpult hat, eine gerade Zahl von 2 bis 32 (Vorgabe: so viele wie die Sitzung; eine neue hat 8)</translation>
    </message>
</context>
<context>
    <name>CommonController_MemAPI</name>
    <message>
        <source>Parameter %1</source>
        <translation>Parameter %1</translation>
    </message>
    <message>
        <source>%1 dB</source>
        <translation>%1 dB</translation>
    </message>
</context>
<context>
    <name>EditorLibrary</name>
    <message>
        <source>The plug-in %1 is a library, but not a Qt plug-in that this program can load.</source>
        <translation>Das Plug-in %1 ist eine Bibliothek, aber kein Qt-Plug-in, das dieses Programm laden kann.</translation>
    </message>
    <message>
        <source>The plug-in %1 is a Qt plug-in of another kind (%2, not %3).</source>
        <translation>Das Plug-in %1 ist ein Qt-Plug-in anderer Art (%2 statt %3).</translation>
    </message>
    <message>
        <source>The plug-in %1 cannot be loaded: %2.</source>
        <translation>Das Plug-in %1 lässt sich nicht laden: %2.</translation>
    </message>
    <message>
        <source>The plug-in %1 does not provide a channel effect.</source>
        <translation>Das Plug-in %1 liefert keinen Kanaleffekt.</translation>
    </message>
    <message>
        <source>The plug-in %1 is an effect of type %2; an equalizer is type %3.</source>
        <translation>Das Plug-in %1 ist ein Effekt vom Typ %2; ein Equalizer hat den Typ %3.</translation>
    </message>
</context>
<context>
    <name>LibraryFile</name>
    <message>
        <source>The plug-in %1 does not exist.</source>
        <translation>Das Plug-in %1 gibt es nicht.</translation>
    </message>
    <message>
        <source>The plug-in %1 is a folder, not a library.</source>
        <translation>Das Plug-in %1 ist ein Ordner und keine Bibliothek.</translation>
    </message>
    <message>
        <source>The plug-in %1 is not a regular file.</source>
        <translation>Das Plug-in %1 ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>The plug-in %1 cannot be read: %2.</source>
        <translation>Das Plug-in %1 lässt sich nicht lesen: %2.</translation>
    </message>
    <message>
        <source>The plug-in %1 is not a library.</source>
        <translation>Das Plug-in %1 ist keine Bibliothek.</translation>
    </message>
    <message>
        <source>The plug-in %1 is a library that was cut short.</source>
        <translation>Das Plug-in %1 ist eine abgeschnittene Bibliothek.</translation>
    </message>
</context>
<context>
    <name>OutputFile</name>
    <message>
        <source>The file %1 cannot be written: %2.</source>
        <translation>Die Datei %1 lässt sich nicht schreiben: %2.</translation>
    </message>
    <message>
        <source>The file %1 cannot be written: it is a folder.</source>
        <translation>Die Datei %1 lässt sich nicht schreiben: Sie ist ein Ordner.</translation>
    </message>
    <message>
        <source>The file %1 cannot be written: it is not a regular file.</source>
        <translation>Die Datei %1 lässt sich nicht schreiben: Sie ist keine gewöhnliche Datei.</translation>
    </message>
</context>
<context>
    <name>RtAudioDevice</name>
    <message>
        <source>No sound device can be used while %1 is not responding.</source>
        <translation>Solange %1 nicht antwortet, lässt sich kein Audiogerät verwenden.</translation>
    </message>
    <message>
        <source>The sound device %1 was disconnected.</source>
        <translation>Das Audiogerät %1 wurde getrennt.</translation>
    </message>
    <message>
        <source>The sound device %1 cannot be used (%2). Another program may be using it: close that one, or choose another device.</source>
        <translation>Das Audiogerät %1 lässt sich nicht verwenden (%2). Vielleicht verwendet es ein anderes Programm: Schließen Sie dieses, oder wählen Sie ein anderes Gerät.</translation>
    </message>
</context>
<context>
    <name>SessionData</name>
    <message>
        <source>%1 is %2, but must be between %3 and %4.</source>
        <translation>%1 ist %2, muss aber zwischen %3 und %4 liegen.</translation>
    </message>
    <message>
        <source>%1 cannot be read. %2</source>
        <translation>%1 lässt sich nicht lesen. %2</translation>
    </message>
    <message>
        <source>%1 cannot be set to &quot;%2&quot;.</source>
        <translation>%1 lässt sich nicht auf „%2“ setzen.</translation>
    </message>
    <message>
        <source>%1 must be true or false.</source>
        <translation>%1 muss true oder false sein.</translation>
    </message>
    <message>
        <source>%1 must be a number.</source>
        <translation>%1 muss eine Zahl sein.</translation>
    </message>
    <message>
        <source>%1 must be text.</source>
        <translation>%1 muss ein Text sein.</translation>
    </message>
    <message>
        <source>%1 must be a list.</source>
        <translation>%1 muss eine Liste sein.</translation>
    </message>
    <message>
        <source>%1 must be an object.</source>
        <translation>%1 muss ein Objekt sein.</translation>
    </message>
    <message>
        <source>%1 must be A or B.</source>
        <translation>%1 muss A oder B sein.</translation>
    </message>
    <message>
        <source>%1 has %2 entries, but the mixer has %3 channels.</source>
        <translation>%1 hat %2 Einträge, aber das Mischpult hat %3 Kanäle.</translation>
    </message>
    <message>
        <source>The file is not a session file.</source>
        <translation>Die Datei ist keine Sitzungsdatei.</translation>
    </message>
    <message>
        <source>The file has version %1, which this program does not know.</source>
        <translation>Die Datei hat die Version %1, die dieses Programm nicht kennt.</translation>
    </message>
    <message>
        <source>%1 is %2, but must be an even number.</source>
        <translation>%1 ist %2, muss aber eine gerade Zahl sein.</translation>
    </message>
</context>
<context>
    <name>StateFile</name>
    <message>
        <source>The state file %1 is empty.</source>
        <translation>Die Zustandsdatei %1 ist leer.</translation>
    </message>
    <message>
        <source>The state file %1 is too long: it holds more than a megabyte, where a state has %2 bytes.</source>
        <translation>Die Zustandsdatei %1 ist zu lang: Sie enthält mehr als ein Megabyte, ein Zustand hat aber %2 Bytes.</translation>
    </message>
    <message>
        <source>The state file %1 is neither an equalizer state nor a preset: it begins with the bytes %2.</source>
        <translation>Die Zustandsdatei %1 ist weder der Zustand eines Equalizers noch ein Preset: Sie beginnt mit den Bytes %2.</translation>
    </message>
    <message>
        <source>The state file %1 is cut short: it holds %2 of the %3 bytes of a state.</source>
        <translation>Die Zustandsdatei %1 ist abgeschnitten: Sie enthält %2 der %3 Bytes eines Zustands.</translation>
    </message>
    <message>
        <source>The state file %1 is too long: it holds %2 bytes, where a state has %3.</source>
        <translation>Die Zustandsdatei %1 ist zu lang: Sie enthält %2 Bytes, ein Zustand hat aber %3.</translation>
    </message>
    <message>
        <source>The state file %1 is a preset whose state is not an equalizer state: it begins with the bytes %2.</source>
        <translation>Die Zustandsdatei %1 ist ein Preset, dessen Zustand nicht der eines Equalizers ist: Er beginnt mit den Bytes %2.</translation>
    </message>
    <message>
        <source>The state file %1 is a preset cut short: it ends inside its header.</source>
        <translation>Die Zustandsdatei %1 ist ein abgeschnittenes Preset: Sie endet mitten im Header.</translation>
    </message>
    <message>
        <source>The state file %1 is a preset of the unknown format version %2.</source>
        <translation>Die Zustandsdatei %1 ist ein Preset der unbekannten Formatversion %2.</translation>
    </message>
    <message>
        <source>The state file %1 is a preset of another plug-in (class %2, not %3).</source>
        <translation>Die Zustandsdatei %1 ist ein Preset eines anderen Plug-ins (Klasse %2 statt %3).</translation>
    </message>
    <message>
        <source>The state file %1 is a preset cut short: its list of chunks is missing.</source>
        <translation>Die Zustandsdatei %1 ist ein abgeschnittenes Preset: Ihre Chunk-Liste fehlt.</translation>
    </message>
    <message>
        <source>The state file %1 is a damaged preset: its list of chunks is not where it should be.</source>
        <translation>Die Zustandsdatei %1 ist ein beschädigtes Preset: Ihre Chunk-Liste steht nicht dort, wo sie stehen müsste.</translation>
    </message>
    <message>
        <source>The state file %1 is a damaged preset: it claims %2 chunks.</source>
        <translation>Die Zustandsdatei %1 ist ein beschädigtes Preset: Sie gibt %2 Chunks an.</translation>
    </message>
    <message>
        <source>The state file %1 is a preset cut short: it ends inside its list of chunks.</source>
        <translation>Die Zustandsdatei %1 ist ein abgeschnittenes Preset: Sie endet mitten in der Chunk-Liste.</translation>
    </message>
    <message>
        <source>The state file %1 is a damaged preset: its chunk %2 lies outside the file.</source>
        <translation>Die Zustandsdatei %1 ist ein beschädigtes Preset: Ihr Chunk %2 liegt außerhalb der Datei.</translation>
    </message>
    <message>
        <source>The state file %1 is a preset without a state.</source>
        <translation>Die Zustandsdatei %1 ist ein Preset ohne Zustand.</translation>
    </message>
    <message>
        <source>The state file %1 is a preset whose state has %2 bytes instead of %3.</source>
        <translation>Die Zustandsdatei %1 ist ein Preset, dessen Zustand %2 statt %3 Bytes hat.</translation>
    </message>
    <message>
        <source>The state file %1 holds %2 for %3 (%4), but values must lie between 0 and 1.</source>
        <translation>Die Zustandsdatei %1 enthält %2 für %3 (%4), aber Werte müssen zwischen 0 und 1 liegen.</translation>
    </message>
    <message>
        <source>The state file %1 is a folder.</source>
        <translation>Die Zustandsdatei %1 ist ein Ordner.</translation>
    </message>
    <message>
        <source>The state file %1 is not a regular file.</source>
        <translation>Die Zustandsdatei %1 ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>The state file %1 cannot be read: %2.</source>
        <translation>Die Zustandsdatei %1 lässt sich nicht lesen: %2.</translation>
    </message>
</context>
<context>
    <name>ZoltaEqualizerGraph</name>
    <message>
        <source>Equalizer curve</source>
        <translation>Equalizerkurve</translation>
    </message>
    <message>
        <source>Low band</source>
        <translation>Tiefenband</translation>
    </message>
    <message>
        <source>Middle 1 band</source>
        <translation>Mittenband 1</translation>
    </message>
    <message>
        <source>Middle 2 band</source>
        <translation>Mittenband 2</translation>
    </message>
    <message>
        <source>Middle 3 band</source>
        <translation>Mittenband 3</translation>
    </message>
    <message>
        <source>Middle 4 band</source>
        <translation>Mittenband 4</translation>
    </message>
    <message>
        <source>High band</source>
        <translation>Höhenband</translation>
    </message>
</context>
<context>
    <name>JackDevice</name>
    <message>
        <source>The sound device %1 was disconnected. It plays on as soon as it is back.</source>
        <translation>Das Audiogerät %1 wurde getrennt. Die Wiedergabe geht weiter, sobald es wieder da ist.</translation>
    </message>
    <message>
        <source>The sound device %1 is not responding.</source>
        <translation>Das Audiogerät %1 antwortet nicht.</translation>
    </message>
</context>
<context>
    <name>LibraryTrial</name>
    <message>
        <source>The plug-in %1 cannot be loaded: it crashes (%2). Its file may be damaged.</source>
        <translation>Das Plug-in %1 lässt sich nicht laden: Es stürzt ab (%2). Die Datei ist möglicherweise beschädigt.</translation>
    </message>
    <message>
        <source>The plug-in %1 cannot be loaded: it ends the program that loads it.</source>
        <translation>Das Plug-in %1 lässt sich nicht laden: Es beendet das Programm, das es lädt.</translation>
    </message>
    <message>
        <source>The plug-in %1 cannot be loaded: it takes longer than %2 seconds.</source>
        <translation>Das Plug-in %1 lässt sich nicht laden: Es braucht länger als %2 Sekunden.</translation>
    </message>
    <message>
        <source>The plug-in %1 cannot be tried in a process of its own: %2.</source>
        <translation>Das Plug-in %1 lässt sich nicht in einem eigenen Prozess prüfen: %2.</translation>
    </message>
</context>
<context>
    <name>FileMenu</name>
    <message>
        <source>&amp;New Session...</source>
        <translation>&amp;Neue Sitzung ...</translation>
    </message>
    <message>
        <source>&amp;Open Audio...</source>
        <translation>&amp;Audiodatei öffnen ...</translation>
    </message>
    <message>
        <source>&amp;Save Session As...</source>
        <translation>Sitzung speichern &amp;unter ...</translation>
    </message>
    <message>
        <source>New Session</source>
        <translation>Neue Sitzung</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>&amp;Zuletzt geöffnet</translation>
    </message>
    <message>
        <source>Open Audio</source>
        <translation>Audiodatei öffnen</translation>
    </message>
    <message>
        <source>Open S&amp;ession...</source>
        <translation>&amp;Sitzung öffnen ...</translation>
    </message>
    <message>
        <source>Open Session</source>
        <translation>Sitzung öffnen</translation>
    </message>
    <message>
        <source>Render &amp;To File...</source>
        <translation>In &amp;Datei rendern ...</translation>
    </message>
    <message>
        <source>Save Session As</source>
        <translation>Sitzung speichern unter</translation>
    </message>
    <message>
        <source>Sessions (*.json);;All files (*)</source>
        <translation>Sitzungen (*.json);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Sound files (*.wav *.flac *.ogg *.aif *.aiff *.mp3);;All files (*)</source>
        <translation>Audiodateien (*.wav *.flac *.ogg *.aif *.aiff *.mp3);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Render through %1</source>
        <translation>Rendern durch %1</translation>
    </message>
    <message>
        <source>Sound files (*.wav *.flac *.ogg)</source>
        <translation>Audiodateien (*.wav *.flac *.ogg)</translation>
    </message>
</context>
<context>
    <name>GraphRange</name>
    <message>
        <source>&amp;Automatic</source>
        <translation>&amp;Automatisch</translation>
    </message>
</context>
<context>
    <name>HelpMenu</name>
    <message>
        <source>&amp;About Zolta</source>
        <translation>&amp;Über Zolta</translation>
    </message>
    <message>
        <source>&amp;Guide</source>
        <translation>&amp;Kurzanleitung</translation>
    </message>
    <message>
        <source>&amp;Keys and Mouse</source>
        <translation>&amp;Tasten und Maus</translation>
    </message>
    <message>
        <source>A channel equalizer whose curve is what is heard, and a mixer to hear it with.</source>
        <translation>Ein Kanal-Equalizer, dessen Kurve das ist, was man hört, und ein Mischpult, mit dem man ihn hört.</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>Vergleichen</translation>
    </message>
    <message>
        <source>Ctrl+B</source>
        <translation>Strg+B</translation>
    </message>
    <message>
        <source>Ctrl+E, Ctrl+M</source>
        <translation>Strg+E, Strg+M</translation>
    </message>
    <message>
        <source>Ctrl+Home, Ctrl+Shift+L</source>
        <translation>Strg+Pos1, Strg+Umschalt+L</translation>
    </message>
    <message>
        <source>Ctrl+O, Ctrl+Shift+R</source>
        <translation>Strg+O, Strg+Umschalt+R</translation>
    </message>
    <message>
        <source>Ctrl+R, Ctrl+L</source>
        <translation>Strg+R, Strg+L</translation>
    </message>
    <message>
        <source>Ctrl+Z, Ctrl+Shift+Z</source>
        <translation>Strg+Z, Strg+Umschalt+Z</translation>
    </message>
    <message>
        <source>Curve: drag a handle</source>
        <translation>Kurve: Griff ziehen</translation>
    </message>
    <message>
        <source>File &gt; Open Audio, or drop the file on the window. The marked strip plays it; Space plays and stops.</source>
        <translation>„Datei &gt; Audiodatei öffnen“, oder die Datei auf das Fenster ziehen. Der markierte Kanalzug spielt sie; die Leertaste startet und hält an.</translation>
    </message>
    <message>
        <source>File &gt; Render To File sends the whole song through the equalizer of the marked strip into a new file.</source>
        <translation>„Datei &gt; In Datei rendern“ schickt das ganze Stück durch den Equalizer des markierten Kanalzugs in eine neue Datei.</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later.</source>
        <translation>Freie Software unter der GNU General Public License, Version 3 oder später.</translation>
    </message>
    <message>
        <source>Keep it</source>
        <translation>Aufbewahren</translation>
    </message>
    <message>
        <source>Knob or number: double click</source>
        <translation>Regler oder Zahl: Doppelklick</translation>
    </message>
    <message>
        <source>Knob: Ctrl+click</source>
        <translation>Regler: Strg+Klick</translation>
    </message>
    <message>
        <source>Knob: drag, wheel, arrow keys</source>
        <translation>Regler: ziehen, Mausrad, Pfeiltasten</translation>
    </message>
    <message>
        <source>Open a song</source>
        <translation>Ein Stück öffnen</translation>
    </message>
    <message>
        <source>Shape it</source>
        <translation>Formen</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>Leertaste</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab-Taste</translation>
    </message>
    <message>
        <source>The Edit key of a strip opens its equalizer. Drag the coloured handles in the curve, or turn the knobs: up is more. Presets has good places to begin.</source>
        <translation>Die Taste Edit eines Kanalzugs öffnet seinen Equalizer. Ziehen Sie die farbigen Griffe in der Kurve, oder drehen Sie die Regler: aufwärts ist mehr. Unter Presets steht, womit sich gut anfangen lässt.</translation>
    </message>
    <message>
        <source>The session is saved by itself. File &gt; Save Session As keeps it under a name, Presets &gt; Save as Preset keeps the settings of one equalizer.</source>
        <translation>Die Sitzung wird von selbst gespeichert. „Datei &gt; Sitzung speichern unter“ gibt ihr einen Namen, „Presets &gt; Als Preset speichern“ bewahrt die Einstellungen eines Equalizers auf.</translation>
    </message>
    <message>
        <source>Write a file</source>
        <translation>Eine Datei schreiben</translation>
    </message>
    <message>
        <source>back to its default</source>
        <translation>zurück zur Vorgabe</translation>
    </message>
    <message>
        <source>frequency and gain; with Alt frequency alone, with Ctrl gain alone, with Shift the width of a middle band</source>
        <translation>Frequenz und Gain; mit Alt nur die Frequenz, mit Strg nur der Gain, mit Umschalt die Breite eines mittleren Bandes</translation>
    </message>
    <message>
        <source>from the mixer to the editor, and back</source>
        <translation>vom Mischpult zum Editor und zurück</translation>
    </message>
    <message>
        <source>measured response; table of parameters</source>
        <translation>gemessener Frequenzgang; Parametertabelle</translation>
    </message>
    <message>
        <source>play or stop</source>
        <translation>abspielen oder anhalten</translation>
    </message>
    <message>
        <source>return to the start; loop</source>
        <translation>zum Anfang; Schleife</translation>
    </message>
    <message>
        <source>switch between A and B</source>
        <translation>zwischen A und B wechseln</translation>
    </message>
    <message>
        <source>to the next control; Space presses a key</source>
        <translation>zum nächsten Bedienelement; die Leertaste drückt eine Taste</translation>
    </message>
    <message>
        <source>turn it; with Shift, finely</source>
        <translation>drehen; mit Umschalt fein</translation>
    </message>
    <message>
        <source>type a value, such as 1.25k or +3</source>
        <translation>einen Wert eintippen, etwa 1.25k oder +3</translation>
    </message>
    <message>
        <source>undo and redo every gesture</source>
        <translation>jede Bedienung rückgängig machen und wiederholen</translation>
    </message>
    <message>
        <source>open a song; in the mixer: render it to a file</source>
        <translation>ein Stück öffnen; im Mischpult: in eine Datei rendern</translation>
    </message>
    <message>
        <source>A and B above the equalizer are two settings (Ctrl+B switches). The EQ key of the strip switches the equalizer off and on. Bypass plays past it at equal loudness; Listen, while held, plays only what one band changes.</source>
        <translation>A und B über dem Equalizer sind zwei Einstellungen (Strg+B wechselt). Die Taste EQ des Kanalzugs schaltet den Equalizer aus und ein. Bypass spielt bei gleicher Lautheit an ihm vorbei; „Hören“ spielt, solange gehalten, nur, was ein Band verändert.</translation>
    </message>
    <message>
        <source>Ctrl+Shift+B, L</source>
        <translation>Strg+Umschalt+B, L</translation>
    </message>
    <message>
        <source>bypass at equal loudness; while held, hear only what the band changes</source>
        <translation>Bypass bei gleicher Lautheit; solange gehalten, nur hören, was das Band verändert</translation>
    </message>
    <message>
        <source>Ctrl+PgUp, Ctrl+PgDown</source>
        <translation>Strg+Bild auf, Strg+Bild ab</translation>
    </message>
    <message>
        <source>previous preset; next preset</source>
        <translation>voriges Preset; nächstes Preset</translation>
    </message>
</context>
<context>
    <name>RenderDialog</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Clipped samples: %1. A lower output level avoids clipping.</source>
        <translation>Übersteuerte Samples: %1. Ein niedrigerer Ausgangspegel vermeidet das.</translation>
    </message>
    <message>
        <source>Render To File</source>
        <translation>In Datei rendern</translation>
    </message>
    <message>
        <source>Writing %1</source>
        <translation>%1 wird geschrieben</translation>
    </message>
</context>
<context>
    <name>TransportMenu</name>
    <message>
        <source>&amp;Loop</source>
        <translation>&amp;Schleife</translation>
    </message>
    <message>
        <source>&amp;Play or Stop</source>
        <translation>&amp;Abspielen oder anhalten</translation>
    </message>
    <message>
        <source>&amp;Return to Start</source>
        <translation>&amp;Zum Anfang</translation>
    </message>
</context>
<context>
    <name>PeakDisplay</name>
    <message>
        <source>%1 dB</source>
        <translation>%1 dB</translation>
    </message>
    <message>
        <source>%1 dB, clipped</source>
        <translation>%1 dB, übersteuert</translation>
    </message>
</context>
<context>
    <name>MasterStrip</name>
    <message>
        <source>Master</source>
        <translation>Summe</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>Stumm</translation>
    </message>
    <message>
        <source>Mute of the master</source>
        <translation>Stummschaltung der Summe</translation>
    </message>
    <message>
        <source>Dim</source>
        <translation>Dim</translation>
    </message>
    <message>
        <source>Plays 20 dB quieter</source>
        <translation>Spielt 20 dB leiser</translation>
    </message>
    <message>
        <source>Mono</source>
        <translation>Mono</translation>
    </message>
    <message>
        <source>Plays both sides as one</source>
        <translation>Spielt beide Seiten als eine</translation>
    </message>
    <message>
        <source>Fader of the master</source>
        <translation>Fader der Summe</translation>
    </message>
    <message>
        <source>Level of the master</source>
        <translation>Pegel der Summe</translation>
    </message>
    <message>
        <source>Highest level of the master</source>
        <translation>Höchster Pegel der Summe</translation>
    </message>
    <message>
        <source>Meter of the master, left</source>
        <translation>Pegelanzeige der Summe, links</translation>
    </message>
    <message>
        <source>Peak of the master, left</source>
        <translation>Spitzenpegel der Summe, links</translation>
    </message>
    <message>
        <source>Meter of the master, right</source>
        <translation>Pegelanzeige der Summe, rechts</translation>
    </message>
    <message>
        <source>Peak of the master, right</source>
        <translation>Spitzenpegel der Summe, rechts</translation>
    </message>
</context>
<context>
    <name>ControlTips</name>
    <message>
        <source>Click: all gains to 0 dB, the outer bands to shelves
Hold for a second: everything but the drive to its default</source>
        <translation>Klick: alle Gains auf 0 dB, die äußeren Bänder auf Shelf
Eine Sekunde halten: alles außer Drive auf den Vorgabewert</translation>
    </message>
    <message>
        <source>Drag, wheel or arrow keys: change (with Shift finely)
Double-click: type a value
Ctrl+click: default</source>
        <translation>Ziehen, Mausrad oder Pfeiltasten: ändern (mit Umschalt fein)
Doppelklick: Wert eingeben
Strg+Klick: Vorgabewert</translation>
    </message>
    <message>
        <source>Double-click or Return: type a value, for example 1.25k or +3
Drag or wheel: change (with Shift finely)
Ctrl+click: default</source>
        <translation>Doppelklick oder Eingabetaste: Wert eingeben, zum Beispiel 1.25k oder +3
Ziehen oder Mausrad: ändern (mit Umschalt fein)
Strg+Klick: Vorgabewert</translation>
    </message>
    <message>
        <source>Drag a handle: frequency and gain
with Shift the quality, with Ctrl only the gain, with Alt only the frequency
Tab and arrow keys: the same by keyboard</source>
        <translation>Griff ziehen: Frequenz und Gain
mit Umschalt die Güte, mit Strg nur der Gain, mit Alt nur die Frequenz
Tab und Pfeiltasten: dasselbe mit der Tastatur</translation>
    </message>
    <message>
        <source>Click: press</source>
        <translation>Klick: drücken</translation>
    </message>
    <message>
        <source>Click: switch</source>
        <translation>Klick: umschalten</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
</context>
<context>
    <name>DesktopEqualizer</name>
    <message>
        <source>The desktop equalizer has no sound because PipeWire is not running. Start it with &quot;systemctl --user start pipewire wireplumber&quot;; the equalizer then plays by itself.</source>
        <translation>Der Desktop-Equalizer hat keinen Ton, weil PipeWire nicht läuft. Mit „systemctl --user start pipewire wireplumber“ starten; dann spielt der Equalizer von selbst.</translation>
    </message>
    <message>
        <source>The desktop equalizer has no sound because PipeWire runs without a session manager. Start one with &quot;systemctl --user start wireplumber&quot;; the equalizer then plays by itself.</source>
        <translation>Der Desktop-Equalizer hat keinen Ton, weil PipeWire ohne Sitzungsverwaltung läuft. Mit „systemctl --user start wireplumber“ eine starten; dann spielt der Equalizer von selbst.</translation>
    </message>
</context>
<context>
    <name>AnalyzerView</name>
    <message>
        <source>Frequency</source>
        <translation>Frequenz</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>After</source>
        <translation>Nachher</translation>
    </message>
    <message>
        <source>Difference</source>
        <translation>Differenz</translation>
    </message>
    <message>
        <source>Peak</source>
        <translation>Spitze</translation>
    </message>
    <message>
        <source>Curve</source>
        <translation>Kurve</translation>
    </message>
    <message>
        <source>Measured</source>
        <translation>Gemessen</translation>
    </message>
    <message>
        <source>Nothing is played</source>
        <translation>Es wird nichts wiedergegeben</translation>
    </message>
</context>
<context>
    <name>AnalyzerBar</name>
    <message>
        <source>Analyzer</source>
        <translation>Analyzer</translation>
    </message>
    <message>
        <source>No smoothing</source>
        <translation>Keine Glättung</translation>
    </message>
    <message>
        <source>1 octave</source>
        <translation>1 Oktave</translation>
    </message>
    <message>
        <source>1/%1 octave</source>
        <translation>1/%1 Oktave</translation>
    </message>
    <message>
        <source>No tilt</source>
        <translation>Keine Neigung</translation>
    </message>
    <message>
        <source>%1 dB/octave</source>
        <translation>%1 dB/Oktave</translation>
    </message>
    <message>
        <source>Peak hold</source>
        <translation>Spitzen halten</translation>
    </message>
    <message>
        <source>Keep the highest levels in view</source>
        <translation>Die höchsten Pegel stehen lassen</translation>
    </message>
    <message>
        <source>Curve</source>
        <translation>Kurve</translation>
    </message>
    <message>
        <source>Show the equalizer's curve, drawn and measured</source>
        <translation>Die Kurve des Equalizers zeigen, gezeichnet und gemessen</translation>
    </message>
    <message>
        <source>Freeze</source>
        <translation>Einfrieren</translation>
    </message>
    <message>
        <source>Keep the picture as it is</source>
        <translation>Das Bild stehen lassen</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
    </message>
    <message>
        <source>Begin averages and peaks anew</source>
        <translation>Mittelwerte und Spitzen neu beginnen</translation>
    </message>
    <message>
        <source>Samples of a transform</source>
        <translation>Samples einer Transformation</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>Hann</source>
        <translation>Hann</translation>
    </message>
    <message>
        <source>Blackman-Harris</source>
        <translation>Blackman-Harris</translation>
    </message>
    <message>
        <source>Flat top</source>
        <translation>Flat-Top</translation>
    </message>
    <message>
        <source>Smoothing</source>
        <translation>Glättung</translation>
    </message>
    <message>
        <source>Tilt</source>
        <translation>Neigung</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>Geschwindigkeit</translation>
    </message>
    <message>
        <source>Fast</source>
        <translation>Schnell</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Slow</source>
        <translation>Langsam</translation>
    </message>
    <message>
        <source>Infinite</source>
        <translation>Unendlich</translation>
    </message>
    <message>
        <source>%1 samples</source>
        <translation>%1 Samples</translation>
    </message>
</context>
<context>
    <name>ToolBarExtension</name>
    <message>
        <source>More</source>
        <translation>Mehr</translation>
    </message>
</context>
<context>
    <name>AuditionBar</name>
    <message>
        <source>Bypass at &amp;Equal Loudness</source>
        <translation>Bypass bei gleicher &amp;Lautheit</translation>
    </message>
    <message>
        <source>Bypass at equal loudness</source>
        <translation>Bypass bei gleicher Lautheit</translation>
    </message>
    <message>
        <source>Settings %1</source>
        <translation>Einstellungen %1</translation>
    </message>
    <message>
        <source>Hear the sound without the equalizer, as loud as with it (Ctrl+Shift+B). The loudness is measured while it plays.</source>
        <translation>Den Klang ohne Equalizer hören, so laut wie mit ihm (Strg+Umschalt+B). Die Lautheit wird gemessen, während er spielt.</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>Tiefen</translation>
    </message>
    <message>
        <source>Middle 1</source>
        <translation>Mitten 1</translation>
    </message>
    <message>
        <source>Middle 2</source>
        <translation>Mitten 2</translation>
    </message>
    <message>
        <source>Middle 3</source>
        <translation>Mitten 3</translation>
    </message>
    <message>
        <source>Middle 4</source>
        <translation>Mitten 4</translation>
    </message>
    <message>
        <source>High</source>
        <translation>Höhen</translation>
    </message>
    <message>
        <source>Listen</source>
        <translation>Hören</translation>
    </message>
    <message>
        <source>Listen to the band while held</source>
        <translation>Das Band hören, solange gehalten</translation>
    </message>
    <message>
        <source>Hold this or the key L to hear only what the band changes.</source>
        <translation>Gedrückt halten, hier oder die Taste L: zu hören ist nur, was das Band verändert.</translation>
    </message>
    <message>
        <source>Band to listen to</source>
        <translation>Band zum Hören</translation>
    </message>
    <message>
        <source>The band that Listen lets you hear. It follows the control or handle that you touched last.</source>
        <translation>Das Band, das „Hören“ hören lässt. Es folgt dem Regler oder Griff, der zuletzt berührt wurde.</translation>
    </message>
    <message>
        <source>Bypass</source>
        <translation>Bypass</translation>
    </message>
    <message>
        <source>You hear only what this band changes: %1.</source>
        <translation>Zu hören ist nur, was dieses Band verändert: %1.</translation>
    </message>
    <message>
        <source>Bypass %1 dB</source>
        <translation>Bypass %1 dB</translation>
    </message>
</context>
<context>
    <name>EditorPresets</name>
    <message>
        <source>Loaded %1.</source>
        <translation>%1 ist geladen.</translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <translation>%1 ist gespeichert.</translation>
    </message>
    <message>
        <source>Deleted %1.</source>
        <translation>%1 gelöscht.</translation>
    </message>
    <message>
        <source>%1 is called %2 now.</source>
        <translation>%1 heißt jetzt %2.</translation>
    </message>
</context>
<context>
    <name>PresetBar</name>
    <message>
        <source>Presets</source>
        <translation>Presets</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>Preset</translation>
    </message>
    <message>
        <source>Previous preset</source>
        <translation>Voriges Preset</translation>
    </message>
    <message>
        <source>Next preset</source>
        <translation>Nächstes Preset</translation>
    </message>
    <message>
        <source>Save the preset</source>
        <translation>Das Preset speichern</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Choose, rename and delete presets</source>
        <translation>Presets wählen, umbenennen und löschen</translation>
    </message>
    <message>
        <source>No preset</source>
        <translation>Kein Preset</translation>
    </message>
    <message>
        <source>Preset: %1, modified</source>
        <translation>Preset: %1, verändert</translation>
    </message>
    <message>
        <source>Preset: %1</source>
        <translation>Preset: %1</translation>
    </message>
</context>
<context>
    <name>FileDialogs</name>
    <message>
        <source>The file %1 already exists. Replace it?</source>
        <translation>Die Datei %1 gibt es schon. Ersetzen?</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
</context>
<context>
    <name>FlatStep</name>
    <message>
        <source>Flat</source>
        <translation>Linear</translation>
    </message>
</context>
</TS>
