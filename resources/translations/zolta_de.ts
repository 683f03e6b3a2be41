<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-License-Identifier: GPL-3.0-or-later -->
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Application</name>
    <message>
        <source>Quit Without Saving</source>
        <translation>Beenden, ohne zu sichern</translation>
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
        <source>More</source>
        <translation>Mehr</translation>
    </message>
    <message>
        <source>Settings %1</source>
        <translation>Einstellungen %1</translation>
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
        <source>Every parameter is at its default.</source>
        <translation>Alle Parameter stehen auf ihren Vorgaben.</translation>
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
        <source>Delete the preset %1?</source>
        <translation>Preset %1 löschen?</translation>
    </message>
    <message>
        <source>Deleted %1.</source>
        <translation>%1 gelöscht.</translation>
    </message>
    <message>
        <source>Name of the preset</source>
        <translation>Name des Presets</translation>
    </message>
    <message>
        <source>No audio</source>
        <translation>Kein Ton</translation>
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
        <source>S&amp;witch between A and B</source>
        <translation>Zwischen A und B &amp;wechseln</translation>
    </message>
    <message>
        <source>Save as Preset</source>
        <translation>Als Preset speichern</translation>
    </message>
    <message>
        <source>There is a preset %1. Replace it?</source>
        <translation>Es gibt ein Preset %1. Ersetzen?</translation>
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
        <source>Reset</source>
        <translation>Zurücksetzen</translation>
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
        <translation>Klar/Drive</translation>
    </message>
    <message>
        <source>Equalizer on</source>
        <translation>Equalizer ein</translation>
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
        <translation>Roh</translation>
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
        <translation>LIN.</translation>
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
        <source>the value of &quot;%1&quot; is no text</source>
        <translation>der Wert von &quot;%1&quot; ist kein Text</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no value of &quot;%2&quot;</source>
        <translation>&quot;%1&quot; ist kein Wert von &quot;%2&quot;</translation>
    </message>
    <message>
        <source>the clipboard holds no settings of an equalizer</source>
        <translation>die Zwischenablage enthält keine Einstellungen eines Equalizers</translation>
    </message>
</context>
<context>
    <name>MixerModel</name>
    <message>
        <source>Channel %1</source>
        <translation>Kanal %1</translation>
    </message>
    <message>
        <source>Nothing is pasted: %1.</source>
        <translation>Nichts eingefügt: %1.</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>Umbenennen</translation>
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
        <translation>Räumt die Brust auf und holt die Worte nach vorn</translation>
    </message>
    <message>
        <source>De-mud</source>
        <translation>Entmulmen</translation>
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
    <name>HistoryMenu</name>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederholen: %1</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
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
</context>
<context>
    <name>PresetFolder</name>
    <message>
        <source>A preset needs a name.</source>
        <translation>Ein Preset braucht einen Namen.</translation>
    </message>
    <message>
        <source>A preset's name has at most %1 letters.</source>
        <translation>Der Name eines Presets hat höchstens %1 Zeichen.</translation>
    </message>
    <message>
        <source>A preset's name does not begin with a full stop and holds none of these: %1</source>
        <translation>Der Name eines Presets beginnt nicht mit einem Punkt und enthält keines dieser Zeichen: %1</translation>
    </message>
    <message>
        <source>The presets' folder %1 cannot be made.</source>
        <translation>Der Ordner %1 für die Presets lässt sich nicht anlegen.</translation>
    </message>
    <message>
        <source>The preset %1 cannot be deleted: %2.</source>
        <translation>Das Preset %1 lässt sich nicht löschen: %2.</translation>
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
        <source>Measured in the sound</source>
        <translation>Im Klang gemessen</translation>
    </message>
</context>
<context>
    <name>SessionFile</name>
    <message>
        <source>Another program has the session %1 open. What is changed here will not be saved.</source>
        <translation>Ein anderes Programm hat die Sitzung %1 geöffnet. Was hier geändert wird, wird nicht gesichert.</translation>
    </message>
    <message>
        <source>The session %1 cannot be read: %2.</source>
        <translation>Die Sitzung %1 lässt sich nicht lesen: %2.</translation>
    </message>
    <message>
        <source>The session %1 cannot be read: %2. It is left alone, and nothing will be saved.</source>
        <translation>Die Sitzung %1 lässt sich nicht lesen: %2. Sie bleibt, wie sie ist, und nichts wird gesichert.</translation>
    </message>
    <message>
        <source>The session %1 cannot be saved: %2.</source>
        <translation>Die Sitzung %1 lässt sich nicht sichern: %2.</translation>
    </message>
    <message>
        <source>The session %1 is damaged and not used: %2. The file is kept as %3.</source>
        <translation>Die Sitzung %1 ist beschädigt und wird nicht verwendet: %2. Die Datei bleibt als %3 erhalten.</translation>
    </message>
    <message>
        <source>The session %1 is damaged and not used: %2. The file cannot be renamed, so nothing will be saved.</source>
        <translation>Die Sitzung %1 ist beschädigt und wird nicht verwendet: %2. Die Datei lässt sich nicht umbenennen, deshalb wird nichts gesichert.</translation>
    </message>
</context>
<context>
    <name>SettingsFile</name>
    <message>
        <source>The editors' settings in %1 cannot be read: %2.</source>
        <translation>Die Einstellungen der Editoren in %1 lassen sich nicht lesen: %2.</translation>
    </message>
    <message>
        <source>The editors' settings in %1 cannot be written: %2.</source>
        <translation>Die Einstellungen der Editoren in %1 lassen sich nicht sichern: %2.</translation>
    </message>
    <message>
        <source>The editors' settings in %1 are damaged and ignored: %2. The file is kept as %3.</source>
        <translation>Die Einstellungen der Editoren in %1 sind beschädigt und werden nicht verwendet: %2. Die Datei bleibt als %3 erhalten.</translation>
    </message>
    <message>
        <source>The editors' settings in %1 are damaged and ignored: %2. The file cannot be renamed, so nothing is kept.</source>
        <translation>Die Einstellungen der Editoren in %1 sind beschädigt und werden nicht verwendet: %2. Die Datei lässt sich nicht umbenennen, deshalb wird nichts gesichert.</translation>
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
        <translation>Klangdatei öffnen</translation>
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
        <source>Sound files (*.wav *.flac *.ogg *.aif *.aiff *.mp3);;All files (*)</source>
        <translation>Klangdateien (*.wav *.flac *.ogg *.aif *.aiff *.mp3);;Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Anhalten</translation>
    </message>
</context>
</TS>
