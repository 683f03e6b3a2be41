<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-License-Identifier: GPL-3.0-or-later -->
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>Application</name>
    <message>
        <source>Quit Without Saving</source>
        <translation>保存せずに終了</translation>
    </message>
    <message>
        <source>The plug-in has no editor for channel %1.</source>
        <translation>このプラグインにはチャンネル %1 のエディターがありません。</translation>
    </message>
    <message>
        <source>Save Anyway</source>
        <translation>それでも保存</translation>
    </message>
    <message>
        <source>The list cannot be printed: %1.</source>
        <translation>一覧を出力できません: %1。</translation>
    </message>
    <message>
        <source>Find It...</source>
        <translation>探す...</translation>
    </message>
    <message>
        <source>The session&apos;s sound file %1 is not there any more.</source>
        <translation>セッションのオーディオファイル %1 が見つかりません。</translation>
    </message>
    <message>
        <source>The desktop equalizer is already running.</source>
        <translation>デスクトップイコライザーはすでに動作しています。</translation>
    </message>
</context>
<context>
    <name>EditorToolBar</name>
    <message>
        <source>Editor</source>
        <translation>エディター</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>UI zoom</source>
        <translation>画面ズーム</translation>
    </message>
    <message>
        <source>Stereo</source>
        <translation>ステレオ</translation>
    </message>
    <message>
        <source>Mono</source>
        <translation>モノラル</translation>
    </message>
    <message>
        <source>Channel</source>
        <translation>チャンネル</translation>
    </message>
    <message>
        <source>Sampling rate</source>
        <translation>サンプリング周波数</translation>
    </message>
    <message>
        <source>Circular</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>Relative circular</source>
        <translation>相対回転</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>直線</translation>
    </message>
    <message>
        <source>Relative</source>
        <translation>相対</translation>
    </message>
    <message>
        <source>Jump</source>
        <translation>ジャンプ</translation>
    </message>
    <message>
        <source>Touch</source>
        <translation>タッチ</translation>
    </message>
    <message>
        <source>Ramp</source>
        <translation>ランプ</translation>
    </message>
    <message>
        <source>Dials</source>
        <translation>ノブ</translation>
    </message>
    <message>
        <source>Sliders</source>
        <translation>スライダー</translation>
    </message>
    <message>
        <source>The curve is drawn for the rate that the sound device runs at. It can be chosen while nothing plays.</source>
        <translation>カーブは、動作中のオーディオデバイスのサンプリング周波数で描かれます。再生していないときに選択できます。</translation>
    </message>
    <message>
        <source>The rate that the curve is drawn for</source>
        <translation>カーブを描くサンプリング周波数</translation>
    </message>
</context>
<context>
    <name>EditorWindow</name>
    <message>
        <source>Presets (*.vstpreset);;Plain states (*.state);;All files (*)</source>
        <translation>プリセット (*.vstpreset);;ステート (*.state);;すべてのファイル (*)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Load State...</source>
        <translation>ステートを読み込む(&amp;L)...</translation>
    </message>
    <message>
        <source>&amp;Save State...</source>
        <translation>ステートを保存(&amp;S)...</translation>
    </message>
    <message>
        <source>Reset to &amp;Defaults</source>
        <translation>初期値に戻す(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>拡大(&amp;I)</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>縮小(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Actual Size</source>
        <translation>実際のサイズ(&amp;A)</translation>
    </message>
    <message>
        <source>Measured &amp;Response</source>
        <translation>測定した周波数特性(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Parameters</source>
        <translation>パラメーター(&amp;P)</translation>
    </message>
    <message>
        <source>Measured response</source>
        <translation>測定した周波数特性</translation>
    </message>
    <message>
        <source>&amp;Mixer</source>
        <translation>ミキサー(&amp;M)</translation>
    </message>
    <message>
        <source>Channels %1 + %2 - Equalizer</source>
        <translation>チャンネル %1 + %2 - イコライザー</translation>
    </message>
    <message>
        <source>Channel %1 - Equalizer</source>
        <translation>チャンネル %1 - イコライザー</translation>
    </message>
    <message>
        <source>Load State</source>
        <translation>ステートを読み込む</translation>
    </message>
    <message>
        <source>States and presets (*.state *.vstpreset);;All files (*)</source>
        <translation>ステートとプリセット (*.state *.vstpreset);;すべてのファイル (*)</translation>
    </message>
    <message>
        <source>Loaded %1.</source>
        <translation>%1 を読み込みました。</translation>
    </message>
    <message>
        <source>Save State</source>
        <translation>ステートを保存</translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <translation>%1 を保存しました。</translation>
    </message>
    <message>
        <source>&amp;Copy Settings</source>
        <translation>設定をコピー(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Paste Settings</source>
        <translation>設定を貼り付け(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Presets</source>
        <translation>プリセット(&amp;P)</translation>
    </message>
    <message>
        <source>Copy A &amp;to B</source>
        <translation>A を B にコピー(&amp;T)</translation>
    </message>
    <message>
        <source>Copy B t&amp;o A</source>
        <translation>B を A にコピー(&amp;O)</translation>
    </message>
    <message>
        <source>No audio</source>
        <translation>オーディオなし</translation>
    </message>
    <message>
        <source>S&amp;witch between A and B</source>
        <translation>A と B の切り替え(&amp;W)</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>パラメーター</translation>
    </message>
    <message>
        <source>&amp;UI Zoom</source>
        <translation>画面のズーム(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Graph Range</source>
        <translation>カーブの範囲(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Transport</source>
        <translation>再生(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Open Audio...</source>
        <translation>オーディオファイルを開く(&amp;O)...</translation>
    </message>
    <message>
        <source>Desktop Equalizer</source>
        <translation>デスクトップイコライザー</translation>
    </message>
    <message>
        <source>Plays to %1</source>
        <translation>再生先: %1</translation>
    </message>
    <message>
        <source>A&amp;nalyzer</source>
        <translation>アナライザー(&amp;N)</translation>
    </message>
    <message>
        <source>Analyzer</source>
        <translation>アナライザー</translation>
    </message>
</context>
<context>
    <name>ChannelCountMenu</name>
    <message>
        <source>&amp;Number of Channels</source>
        <translation>チャンネル数(&amp;N)</translation>
    </message>
</context>
<context>
    <name>LanguageMenu</name>
    <message>
        <source>&amp;Language</source>
        <translation>言語(&amp;L)</translation>
    </message>
</context>
<context>
    <name>MixerWindow</name>
    <message>
        <source>Mixer</source>
        <translation>ミキサー</translation>
    </message>
    <message>
        <source>The plug-in makes no editor for %1.</source>
        <translation>このプラグインには %1 のエディターがありません。</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Channel</source>
        <translation>チャンネル(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Copy Equalizer</source>
        <translation>イコライザーをコピー(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Open Editor</source>
        <translation>エディターを開く(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Paste Equalizer</source>
        <translation>イコライザーを貼り付け(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Rename...</source>
        <translation>名前の変更(&amp;R)...</translation>
    </message>
    <message>
        <source>Name of %1</source>
        <translation>%1 の名前</translation>
    </message>
    <message>
        <source>R&amp;eset Equalizer</source>
        <translation>イコライザーをリセット(&amp;E)</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>名前の変更</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Transport</source>
        <translation>再生(&amp;T)</translation>
    </message>
</context>
<context>
    <name>Parameter</name>
    <message>
        <source>Low type</source>
        <translation>ロー タイプ</translation>
    </message>
    <message>
        <source>Low frequency</source>
        <translation>ロー 周波数</translation>
    </message>
    <message>
        <source>Low gain</source>
        <translation>ロー ゲイン</translation>
    </message>
    <message>
        <source>Low on</source>
        <translation>ロー オン</translation>
    </message>
    <message>
        <source>Middle 1 quality</source>
        <translation>ミドル1 Q</translation>
    </message>
    <message>
        <source>Middle 1 frequency</source>
        <translation>ミドル1 周波数</translation>
    </message>
    <message>
        <source>Middle 1 gain</source>
        <translation>ミドル1 ゲイン</translation>
    </message>
    <message>
        <source>Middle 1 on</source>
        <translation>ミドル1 オン</translation>
    </message>
    <message>
        <source>Middle 2 quality</source>
        <translation>ミドル2 Q</translation>
    </message>
    <message>
        <source>Middle 2 frequency</source>
        <translation>ミドル2 周波数</translation>
    </message>
    <message>
        <source>Middle 2 gain</source>
        <translation>ミドル2 ゲイン</translation>
    </message>
    <message>
        <source>Middle 2 on</source>
        <translation>ミドル2 オン</translation>
    </message>
    <message>
        <source>Middle 3 quality</source>
        <translation>ミドル3 Q</translation>
    </message>
    <message>
        <source>Middle 3 frequency</source>
        <translation>ミドル3 周波数</translation>
    </message>
    <message>
        <source>Middle 3 gain</source>
        <translation>ミドル3 ゲイン</translation>
    </message>
    <message>
        <source>Middle 3 on</source>
        <translation>ミドル3 オン</translation>
    </message>
    <message>
        <source>Middle 4 quality</source>
        <translation>ミドル4 Q</translation>
    </message>
    <message>
        <source>Middle 4 frequency</source>
        <translation>ミドル4 周波数</translation>
    </message>
    <message>
        <source>Middle 4 gain</source>
        <translation>ミドル4 ゲイン</translation>
    </message>
    <message>
        <source>Middle 4 on</source>
        <translation>ミドル4 オン</translation>
    </message>
    <message>
        <source>High type</source>
        <translation>ハイ タイプ</translation>
    </message>
    <message>
        <source>High frequency</source>
        <translation>ハイ 周波数</translation>
    </message>
    <message>
        <source>High gain</source>
        <translation>ハイ ゲイン</translation>
    </message>
    <message>
        <source>High on</source>
        <translation>ハイ オン</translation>
    </message>
    <message>
        <source>Input level</source>
        <translation>入力レベル</translation>
    </message>
    <message>
        <source>Output level</source>
        <translation>出力レベル</translation>
    </message>
    <message>
        <source>Clean/drive</source>
        <translation>クリーン/ドライブ</translation>
    </message>
    <message>
        <source>Equalizer on</source>
        <translation>イコライザー: オン</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>レベル</translation>
    </message>
    <message>
        <source>Mono/stereo</source>
        <translation>モノラル/ステレオ</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>ミュート</translation>
    </message>
    <message>
        <source>Solo</source>
        <translation>ソロ</translation>
    </message>
    <message>
        <source>Source</source>
        <translation>入力元</translation>
    </message>
    <message>
        <source>Balance</source>
        <translation>バランス</translation>
    </message>
    <message>
        <source>Master level</source>
        <translation>マスター: レベル</translation>
    </message>
    <message>
        <source>Master mute</source>
        <translation>マスター: ミュート</translation>
    </message>
    <message>
        <source>Dim</source>
        <translation>ディム</translation>
    </message>
    <message>
        <source>Mono</source>
        <translation>モノラル</translation>
    </message>
</context>
<context>
    <name>ParameterListModel</name>
    <message>
        <source>Parameter</source>
        <translation>パラメーター</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>値</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>単位</translation>
    </message>
    <message>
        <source>Raw</source>
        <translation>内部値</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名前</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 から %2</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation>%1 または %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a value of %2: enter %3 or %4.</source>
        <translation>「%1」は%2の値ではありません。%3 または %4 を入力してください。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a value of %2: enter a value from %3 to %4.</source>
        <translation>「%1」は%2の値ではありません。%3 から %4 までの値を入力してください。</translation>
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
        <translation>ロー タイプ</translation>
    </message>
    <message>
        <source>Low frequency</source>
        <translation>ロー 周波数</translation>
    </message>
    <message>
        <source>Low gain</source>
        <translation>ロー ゲイン</translation>
    </message>
    <message>
        <source>Low band on</source>
        <translation>ロー バンド オン</translation>
    </message>
    <message>
        <source>Middle 1 quality</source>
        <translation>ミドル1 Q</translation>
    </message>
    <message>
        <source>Middle 1 frequency</source>
        <translation>ミドル1 周波数</translation>
    </message>
    <message>
        <source>Middle 1 gain</source>
        <translation>ミドル1 ゲイン</translation>
    </message>
    <message>
        <source>Middle 1 band on</source>
        <translation>ミドル1 バンド オン</translation>
    </message>
    <message>
        <source>Middle 2 quality</source>
        <translation>ミドル2 Q</translation>
    </message>
    <message>
        <source>Middle 2 frequency</source>
        <translation>ミドル2 周波数</translation>
    </message>
    <message>
        <source>Middle 2 gain</source>
        <translation>ミドル2 ゲイン</translation>
    </message>
    <message>
        <source>Middle 2 band on</source>
        <translation>ミドル2 バンド オン</translation>
    </message>
    <message>
        <source>Middle 3 quality</source>
        <translation>ミドル3 Q</translation>
    </message>
    <message>
        <source>Middle 3 frequency</source>
        <translation>ミドル3 周波数</translation>
    </message>
    <message>
        <source>Middle 3 gain</source>
        <translation>ミドル3 ゲイン</translation>
    </message>
    <message>
        <source>Middle 3 band on</source>
        <translation>ミドル3 バンド オン</translation>
    </message>
    <message>
        <source>Middle 4 quality</source>
        <translation>ミドル4 Q</translation>
    </message>
    <message>
        <source>Middle 4 frequency</source>
        <translation>ミドル4 周波数</translation>
    </message>
    <message>
        <source>Middle 4 gain</source>
        <translation>ミドル4 ゲイン</translation>
    </message>
    <message>
        <source>Middle 4 band on</source>
        <translation>ミドル4 バンド オン</translation>
    </message>
    <message>
        <source>High type</source>
        <translation>ハイ タイプ</translation>
    </message>
    <message>
        <source>High frequency</source>
        <translation>ハイ 周波数</translation>
    </message>
    <message>
        <source>High gain</source>
        <translation>ハイ ゲイン</translation>
    </message>
    <message>
        <source>High band on</source>
        <translation>ハイ バンド オン</translation>
    </message>
    <message>
        <source>Input level</source>
        <translation>入力レベル</translation>
    </message>
    <message>
        <source>Output level</source>
        <translation>出力レベル</translation>
    </message>
    <message>
        <source>Drive</source>
        <translation>ドライブ</translation>
    </message>
    <message>
        <source>About Zolta</source>
        <translation>Zolta について</translation>
    </message>
    <message>
        <source>Zoom the curve in</source>
        <translation>カーブのズーム: 拡大</translation>
    </message>
    <message>
        <source>Zoom the curve out</source>
        <translation>カーブのズーム: 縮小</translation>
    </message>
    <message>
        <source>Spectrum</source>
        <translation>スペクトラム</translation>
    </message>
    <message>
        <source>Flat</source>
        <translation>フラット</translation>
    </message>
    <message>
        <source>Input meter, left</source>
        <translation>入力メーター、左</translation>
    </message>
    <message>
        <source>Input meter, right</source>
        <translation>入力メーター、右</translation>
    </message>
    <message>
        <source>Input meter</source>
        <translation>入力メーター</translation>
    </message>
    <message>
        <source>Output meter, left</source>
        <translation>出力メーター、左</translation>
    </message>
    <message>
        <source>Output meter, right</source>
        <translation>出力メーター、右</translation>
    </message>
    <message>
        <source>Output meter</source>
        <translation>出力メーター</translation>
    </message>
</context>
<context>
    <name>ChannelCompare</name>
    <message>
        <source>Choose %1</source>
        <translation>%1 を選択</translation>
    </message>
    <message>
        <source>Copy %1 to %2</source>
        <translation>%1 を %2 にコピー</translation>
    </message>
</context>
<context>
    <name>ChannelText</name>
    <message>
        <source>The value of &quot;%1&quot; must be text.</source>
        <translation>「%1」の値はテキストでなければなりません。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a value of &quot;%2&quot;.</source>
        <translation>「%1」は「%2」の値ではありません。</translation>
    </message>
    <message>
        <source>Cannot paste. The clipboard holds no equalizer settings.</source>
        <translation>貼り付けできません。クリップボードにイコライザーの設定がありません。</translation>
    </message>
    <message>
        <source>Cannot paste. %1</source>
        <translation>貼り付けできません。%1</translation>
    </message>
</context>
<context>
    <name>MixerModel</name>
    <message>
        <source>Channel %1</source>
        <translation>チャンネル %1</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>名前の変更</translation>
    </message>
    <message>
        <source>Number of Channels</source>
        <translation>チャンネル数</translation>
    </message>
</context>
<context>
    <name>EditHistory</name>
    <message>
        <source>%1 parameters</source>
        <translation>%1 個のパラメーター</translation>
    </message>
</context>
<context>
    <name>EditorSession</name>
    <message>
        <source>Load %1</source>
        <translation>%1 の読み込み</translation>
    </message>
    <message>
        <source>The plug-in did not accept the state in %1.</source>
        <translation>プラグインが %1 のステートを受け付けませんでした。</translation>
    </message>
    <message>
        <source>The state file %1 cannot be written: the plug-in gave no state.</source>
        <translation>ステートファイル %1 に書き込めません。プラグインからステートを取得できませんでした。</translation>
    </message>
</context>
<context>
    <name>FactoryPreset</name>
    <message>
        <source>A gentle smile</source>
        <translation>穏やかなドンシャリ</translation>
    </message>
    <message>
        <source>A little more below, a little less above</source>
        <translation>低域を少し足し、高域を少し引く</translation>
    </message>
    <message>
        <source>Acoustic guitar</source>
        <translation>アコースティックギター</translation>
    </message>
    <message>
        <source>Air</source>
        <translation>エアー</translation>
    </message>
    <message>
        <source>Bass guitar</source>
        <translation>ベースギター</translation>
    </message>
    <message>
        <source>Bite without fizz</source>
        <translation>耳障りにならないエッジ</translation>
    </message>
    <message>
        <source>Body, crack and wires</source>
        <translation>胴鳴り、アタック、スナッピー</translation>
    </message>
    <message>
        <source>Clears the chest and brings the words forward</source>
        <translation>胸の響きを整え、言葉を前に出す</translation>
    </message>
    <message>
        <source>De-mud</source>
        <translation>こもり除去</translation>
    </message>
    <message>
        <source>Electric guitar</source>
        <translation>エレキギター</translation>
    </message>
    <message>
        <source>For a clear announcer</source>
        <translation>明瞭なアナウンスに</translation>
    </message>
    <message>
        <source>Kick</source>
        <translation>キック</translation>
    </message>
    <message>
        <source>Leaves the drums below to their own microphones</source>
        <translation>ドラムの低域は個別のマイクに任せる</translation>
    </message>
    <message>
        <source>Less boom, more strings</source>
        <translation>箱鳴りを抑え、弦を際立たせる</translation>
    </message>
    <message>
        <source>Low cut</source>
        <translation>ローカット</translation>
    </message>
    <message>
        <source>Makes room between 200 and 500 Hz</source>
        <translation>200〜500 Hz をすっきりさせる</translation>
    </message>
    <message>
        <source>Opens the top</source>
        <translation>高域を開放的に</translation>
    </message>
    <message>
        <source>Overheads</source>
        <translation>オーバーヘッド</translation>
    </message>
    <message>
        <source>Piano</source>
        <translation>ピアノ</translation>
    </message>
    <message>
        <source>Round and still heard on small speakers</source>
        <translation>丸く、小さなスピーカーでも聞こえる</translation>
    </message>
    <message>
        <source>Rumble and steps away, nothing else</source>
        <translation>低い雑音と足音だけを取り除く</translation>
    </message>
    <message>
        <source>Snare</source>
        <translation>スネア</translation>
    </message>
    <message>
        <source>Speech</source>
        <translation>スピーチ</translation>
    </message>
    <message>
        <source>Takes the edge off sharp consonants</source>
        <translation>鋭い子音を和らげる</translation>
    </message>
    <message>
        <source>Telephone</source>
        <translation>電話</translation>
    </message>
    <message>
        <source>The voice on the line</source>
        <translation>電話越しの声</translation>
    </message>
    <message>
        <source>Vocal de-esser</source>
        <translation>ボーカルのディエッサー</translation>
    </message>
    <message>
        <source>Vocal presence</source>
        <translation>ボーカルのプレゼンス</translation>
    </message>
    <message>
        <source>Warmth</source>
        <translation>ウォーム</translation>
    </message>
    <message>
        <source>Weight below, beater above, no cardboard</source>
        <translation>低域の重みとビーターのアタック、箱鳴りなし</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>&amp;Undo</source>
        <translation>元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>元に戻す(&amp;U): %1</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>やり直す(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>やり直す(&amp;R): %1</translation>
    </message>
    <message>
        <source>Pasted.</source>
        <translation>貼り付けました。</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>リセット</translation>
    </message>
    <message>
        <source>Every parameter is at its default.</source>
        <translation>すべてのパラメーターを初期値に戻しました。</translation>
    </message>
</context>
<context>
    <name>MixerStrip</name>
    <message>
        <source>%1 mono</source>
        <translation>%1 をモノラルに</translation>
    </message>
    <message>
        <source>%1 stereo</source>
        <translation>%1 をステレオに</translation>
    </message>
    <message>
        <source>A double click renames the channel</source>
        <translation>ダブルクリックで名前を変更します</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>チャンネル %1</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>編集</translation>
    </message>
    <message>
        <source>Curve of %1</source>
        <translation>%1 のカーブ</translation>
    </message>
    <message>
        <source>Editor of %1</source>
        <translation>%1 のエディター</translation>
    </message>
    <message>
        <source>Equalizer of %1</source>
        <translation>%1 のイコライザー</translation>
    </message>
    <message>
        <source>Fader of %1</source>
        <translation>%1 のフェーダー</translation>
    </message>
    <message>
        <source>File</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>Input %1</source>
        <translation>入力 %1</translation>
    </message>
    <message>
        <source>Level of %1</source>
        <translation>%1 のレベル</translation>
    </message>
    <message>
        <source>Meter of channel %1</source>
        <translation>チャンネル %1 のメーター</translation>
    </message>
    <message>
        <source>Mono or stereo of %1</source>
        <translation>%1 のモノラル/ステレオ</translation>
    </message>
    <message>
        <source>Mute of %1</source>
        <translation>%1 のミュート</translation>
    </message>
    <message>
        <source>Name of %1</source>
        <translation>%1 の名前</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>オフ</translation>
    </message>
    <message>
        <source>Opens the editor</source>
        <translation>エディターを開きます</translation>
    </message>
    <message>
        <source>Peak of channel %1</source>
        <translation>チャンネル %1 のピーク</translation>
    </message>
    <message>
        <source>Solo of %1</source>
        <translation>%1 のソロ</translation>
    </message>
    <message>
        <source>Source of %1</source>
        <translation>%1 の入力元</translation>
    </message>
    <message>
        <source>Test signal</source>
        <translation>テスト信号</translation>
    </message>
    <message>
        <source>Highest level of %1</source>
        <translation>%1 の最高レベル</translation>
    </message>
    <message>
        <source>Balance of %1</source>
        <translation>%1 のバランス</translation>
    </message>
    <message>
        <source>Silenced</source>
        <translation>消音中</translation>
    </message>
    <message>
        <source>Ch. %1</source>
        <translation>CH %1</translation>
    </message>
</context>
<context>
    <name>PresetFolder</name>
    <message>
        <source>A preset needs a name.</source>
        <translation>プリセットには名前が必要です。</translation>
    </message>
    <message>
        <source>The preset %1 cannot be deleted: %2.</source>
        <translation>プリセット %1 を削除できません: %2。</translation>
    </message>
    <message>
        <source>A preset's name can have up to %1 characters.</source>
        <translation>プリセットの名前は %1 文字までです。</translation>
    </message>
    <message>
        <source>A preset's name cannot begin with a full stop or contain any of these: %1</source>
        <translation>プリセットの名前はピリオドで始められず、次の文字を含められません: %1</translation>
    </message>
    <message>
        <source>The presets' folder %1 cannot be created. Check whether its parent folder can be written.</source>
        <translation>プリセットのフォルダー %1 を作成できません。上位のフォルダーに書き込めるか確認してください。</translation>
    </message>
    <message>
        <source>The preset %1 cannot be renamed: %2.</source>
        <translation>プリセット %1 の名前を変えられません: %2。</translation>
    </message>
</context>
<context>
    <name>PresetMenu</name>
    <message>
        <source>&amp;Delete</source>
        <translation>削除(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Factory</source>
        <translation>ファクトリー(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Save as Preset...</source>
        <translation>プリセットとして保存(&amp;S)...</translation>
    </message>
    <message>
        <source>Save as Preset</source>
        <translation>プリセットとして保存</translation>
    </message>
    <message>
        <source>A preset named %1 already exists. Replace it?</source>
        <translation>プリセット %1 は既にあります。置き換えますか?</translation>
    </message>
    <message>
        <source>Name of the preset</source>
        <translation>プリセットの名前</translation>
    </message>
    <message>
        <source>Delete Preset</source>
        <translation>プリセットの削除</translation>
    </message>
    <message>
        <source>Delete the preset %1?</source>
        <translation>プリセット %1 を削除しますか?</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>前へ(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>次へ(&amp;N)</translation>
    </message>
    <message>
        <source>Save Preset A&amp;gain</source>
        <translation>プリセットを上書き保存(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Rename...</source>
        <translation>名前の変更(&amp;R)...</translation>
    </message>
    <message>
        <source>Show F&amp;older</source>
        <translation>フォルダーを表示(&amp;O)</translation>
    </message>
    <message>
        <source>Rename Preset</source>
        <translation>プリセットの名前の変更</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>削除</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>置き換える</translation>
    </message>
</context>
<context>
    <name>ResponseView</name>
    <message>
        <source>The equalizer is off</source>
        <translation>イコライザーはオフです</translation>
    </message>
    <message>
        <source>Largest difference: %1 dB</source>
        <translation>最大の差: %1 dB</translation>
    </message>
    <message>
        <source>Drawn</source>
        <translation>描画したカーブ</translation>
    </message>
    <message>
        <source>Measured</source>
        <translation>測定したカーブ</translation>
    </message>
</context>
<context>
    <name>SessionFile</name>
    <message>
        <source>The session %1 cannot be read: %2.</source>
        <translation>セッション %1 を読み込めません: %2。</translation>
    </message>
    <message>
        <source>The session %1 is damaged. %2</source>
        <translation>セッション %1 は壊れています。%2</translation>
    </message>
    <message>
        <source>The file is not valid JSON: %1 at byte %2.</source>
        <translation>ファイルは正しい JSON ではありません: %1 (%2 バイト目)。</translation>
    </message>
    <message>
        <source>The session %1 cannot be read. %2</source>
        <translation>セッション %1 を読み込めません。%2</translation>
    </message>
    <message>
        <source>The session %1 cannot be read because it is not a regular file.</source>
        <translation>セッション %1 は通常のファイルではないため読み込めません。</translation>
    </message>
    <message>
        <source>The file is too long.</source>
        <translation>ファイルが長すぎます。</translation>
    </message>
    <message>
        <source>The file is left alone, and nothing will be saved.</source>
        <translation>ファイルはそのまま残し、保存は行いません。</translation>
    </message>
    <message>
        <source>Another program has the session %1 open, as its lock file %2 says. Changes made here will not be saved.</source>
        <translation>ロックファイル %2 によると、セッション %1 は別のプログラムで開かれています。ここでの変更は保存しません。</translation>
    </message>
    <message>
        <source>The session cannot be saved. %1</source>
        <translation>セッションを保存できません。%1</translation>
    </message>
    <message>
        <source>The file cannot be renamed, so it is left alone, and nothing will be saved.</source>
        <translation>ファイル名を変更できないためファイルはそのまま残し、保存は行いません。</translation>
    </message>
    <message>
        <source>The session is not used, and the file is kept as %1.</source>
        <translation>このセッションは使用せず、ファイルは %1 として残します。</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1%2</translation>
    </message>
</context>
<context>
    <name>SettingsFile</name>
    <message>
        <source>&quot;%1&quot; is not a channel with settings.</source>
        <translation>「%1」は設定を持つチャンネルではありません。</translation>
    </message>
    <message>
        <source>The file is not a settings file of version %1.</source>
        <translation>ファイルはバージョン %1 の設定ファイルではありません。</translation>
    </message>
    <message>
        <source>The file has no channels.</source>
        <translation>ファイルにチャンネルがありません。</translation>
    </message>
    <message>
        <source>The file is too long.</source>
        <translation>ファイルが長すぎます。</translation>
    </message>
    <message>
        <source>The file is not valid JSON: %1 at byte %2.</source>
        <translation>ファイルは正しい JSON ではありません: %1 (%2 バイト目)。</translation>
    </message>
    <message>
        <source>The editors' settings in %1 cannot be read because %1 is not a regular file. No settings will be saved.</source>
        <translation>エディターの設定 %1 を読み込めません。%1 は通常のファイルではありません。設定は保存しません。</translation>
    </message>
    <message>
        <source>The editors' settings in %1 cannot be read: %2. No settings will be saved.</source>
        <translation>エディターの設定 %1 を読み込めません: %2。設定は保存しません。</translation>
    </message>
    <message>
        <source>The editors' settings in %1 were saved by a later version of this program. They are left alone, and no settings will be saved.</source>
        <translation>エディターの設定 %1 は、このプログラムの新しいバージョンで保存されています。ファイルはそのまま残し、設定は保存しません。</translation>
    </message>
    <message>
        <source>The editors' settings cannot be saved. %1</source>
        <translation>エディターの設定を保存できません。%1</translation>
    </message>
    <message>
        <source>The editors' settings in %1 are damaged and ignored. %2 The file is kept as %3.</source>
        <translation>エディターの設定 %1 は壊れているため使用しません。%2ファイルは %3 として残します。</translation>
    </message>
    <message>
        <source>The editors' settings in %1 are damaged and ignored. %2 The file cannot be renamed, so no settings will be saved.</source>
        <translation>エディターの設定 %1 は壊れているため使用しません。%2ファイル名を変更できないため、設定は保存しません。</translation>
    </message>
</context>
<context>
    <name>TransportBar</name>
    <message>
        <source>Audio error</source>
        <translation>オーディオエラー</translation>
    </message>
    <message>
        <source>No audio</source>
        <translation>オーディオなし</translation>
    </message>
    <message>
        <source>No device</source>
        <translation>デバイスなし</translation>
    </message>
    <message>
        <source>No file</source>
        <translation>ファイルなし</translation>
    </message>
    <message>
        <source>Open sound file</source>
        <translation>オーディオファイルを開く</translation>
    </message>
    <message>
        <source>Output device</source>
        <translation>出力デバイス</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>再生</translation>
    </message>
    <message>
        <source>Playing</source>
        <translation>再生中</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>再生位置</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
    <message>
        <source>Waiting for device</source>
        <translation>デバイスを待機中</translation>
    </message>
    <message>
        <source>Loop</source>
        <translation>ループ</translation>
    </message>
    <message>
        <source>Return to the start</source>
        <translation>先頭に戻る</translation>
    </message>
</context>
<context>
    <name>AudioDevices</name>
    <message>
        <source>There is no sound device &quot;%1&quot;; --devices shows them all.</source>
        <translation>オーディオデバイス「%1」はありません。--devices ですべて表示できます。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; may mean several sound devices: %2.</source>
        <translation>「%1」に当てはまるオーディオデバイスが複数あります: %2。</translation>
    </message>
    <message>
        <source>The sound device %1 cannot be used: it does not run at %2 Hz.</source>
        <translation>オーディオデバイス %1 を使用できません。%2 Hz に対応していません。</translation>
    </message>
    <message>
        <source>The sound device %1 cannot be used: it has no outputs.</source>
        <translation>オーディオデバイス %1 を使用できません。出力がありません。</translation>
    </message>
    <message>
        <source>The sound device %1 cannot be used: neither it nor the default device has inputs.</source>
        <translation>オーディオデバイス %1 を使用できません。このデバイスにも既定のデバイスにも入力がありません。</translation>
    </message>
    <message>
        <source>There is no sound device to play on. Connect one, or start the sound server (PipeWire, PulseAudio or JACK), and play again.</source>
        <translation>再生に使えるオーディオデバイスがありません。デバイスを接続するか、サウンドサーバー (PipeWire、PulseAudio、JACK) を起動してから、もう一度再生してください。</translation>
    </message>
</context>
<context>
    <name>AudioReader</name>
    <message>
        <source>The sound file %1 cannot be read: it is a folder.</source>
        <translation>オーディオファイル %1 を読み込めません。フォルダーです。</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read: it is not a regular file.</source>
        <translation>オーディオファイル %1 を読み込めません。通常のファイルではありません。</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read: it is longer than its header can state.</source>
        <translation>オーディオファイル %1 を読み込めません。ヘッダーで表せる長さを超えています。</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read. It is cut short: its header promises %2 bytes of samples, but it holds %3.</source>
        <translation>オーディオファイル %1 を読み込めません。途中で切れています。ヘッダーではサンプルが %2 バイトですが、実際は %3 バイトです。</translation>
    </message>
    <message>
        <source>The file %1 is not a sound file that can be read.</source>
        <translation>ファイル %1 は、読み込めるオーディオファイルではありません。</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read. It is cut short: its last page is missing.</source>
        <translation>オーディオファイル %1 を読み込めません。途中で切れていて、最後のページがありません。</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read. It is cut short: it ends after %2 of %3 frames.</source>
        <translation>オーディオファイル %1 を読み込めません。途中で切れています。%3 フレームのうち %2 フレームしかありません。</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read: it is damaged.</source>
        <translation>オーディオファイル %1 を読み込めません。壊れています。</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read: %2.</source>
        <translation>オーディオファイル %1 を読み込めません: %2。</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read: it holds several streams one after the other.</source>
        <translation>オーディオファイル %1 を読み込めません。複数のストリームが連続して入っています。</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be read: it is damaged at byte %2.</source>
        <translation>オーディオファイル %1 を読み込めません。%2 バイト目で壊れています。</translation>
    </message>
</context>
<context>
    <name>AudioRenderer</name>
    <message>
        <source>The sound file %1 cannot be written: it is also the input file.</source>
        <translation>オーディオファイル %1 に書き込めません。入力ファイルと同じファイルです。</translation>
    </message>
    <message>
        <source>Wrote %1: %2 seconds, %3 Hz, channels: %4.</source>
        <translation>%1 に書き出しました: %2 秒、%3 Hz、チャンネル数: %4。</translation>
    </message>
</context>
<context>
    <name>AudioSession</name>
    <message>
        <source>There is no sound file to play.</source>
        <translation>再生するオーディオファイルがありません。</translation>
    </message>
    <message>
        <source>The sound file %1 has a sampling rate of %2 Hz and cannot be played at %3 Hz.</source>
        <translation>オーディオファイル %1 のサンプリングレートは %2 Hz のため、%3 Hz では再生できません。</translation>
    </message>
    <message>
        <source>The sound device %1 is not responding.</source>
        <translation>オーディオデバイス %1 が応答しません。</translation>
    </message>
</context>
<context>
    <name>AudioWriter</name>
    <message>
        <source>The sound file %1 cannot be written: it is a folder.</source>
        <translation>オーディオファイル %1 に書き込めません。フォルダーです。</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be written: it is not a regular file.</source>
        <translation>オーディオファイル %1 に書き込めません。通常のファイルではありません。</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be written: %2.</source>
        <translation>オーディオファイル %1 に書き込めません: %2。</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be written: its encoder failed.</source>
        <translation>オーディオファイル %1 に書き込めません。エンコーダーでエラーが発生しました。</translation>
    </message>
    <message>
        <source>The sound file %1 cannot be written: its format does not take %2 channels at %3 Hz.</source>
        <translation>オーディオファイル %1 に書き込めません。この形式は %3 Hz の %2 チャンネルに対応していません。</translation>
    </message>
</context>
<context>
    <name>CommandLine</name>
    <message>
        <source>%1 cannot be combined with %2.</source>
        <translation>%1 と %2 は同時に使えません。</translation>
    </message>
    <message>
        <source>%1 can only be used with %2.</source>
        <translation>%1 は %2 と一緒にしか使えません。</translation>
    </message>
    <message>
        <source>%1 can only be used with %2 or %3.</source>
        <translation>%1 は %2 または %3 と一緒にしか使えません。</translation>
    </message>
    <message>
        <source>--render must be followed by the names of two files, IN and OUT.</source>
        <translation>--render の後には IN と OUT の 2 つのファイル名を指定してください。</translation>
    </message>
    <message>
        <source>The name of the file to render must end in .wav, .flac or .ogg; &quot;%1&quot; does not.</source>
        <translation>書き出すファイルの名前は .wav、.flac、.ogg のいずれかで終わる必要があります。「%1」は使えません。</translation>
    </message>
    <message>
        <source>--float can only be used for a file whose name ends in .wav; &quot;%1&quot; does not.</source>
        <translation>--float は名前が .wav で終わるファイルにしか使えません。「%1」には使えません。</translation>
    </message>
    <message>
        <source>--render with --channel also needs --session; without one, all channels have the same settings.</source>
        <translation>--render と --channel を同時に使うには --session も必要です。セッションがないと、すべてのチャンネルの設定は同じです。</translation>
    </message>
    <message>
        <source>The argument &quot;%1&quot; is not valid UTF-8. Rename the file, or use another one.</source>
        <translation>引数「%1」は正しい UTF-8 ではありません。ファイルの名前を変更するか、別のファイルを使ってください。</translation>
    </message>
    <message>
        <source>Exit codes: 0 done, 1 a file or the plug-in has an error, 2 usage error.
</source>
        <translation>終了コード: 0 正常終了、1 ファイルまたはプラグインのエラー、2 使い方の誤り。
</translation>
    </message>
    <message>
        <source>There is no display to open a window on (DISPLAY and WAYLAND_DISPLAY are not set). Without one, use --list, --save-state FILE, --screenshot FILE.png, --render IN OUT or --help.</source>
        <translation>ウィンドウを開くディスプレイがありません (DISPLAY も WAYLAND_DISPLAY も設定されていません)。ディスプレイなしでは --list、--save-state FILE、--screenshot FILE.png、--render IN OUT、--help を使ってください。</translation>
    </message>
    <message>
        <source>the editor's library (default: ../lib/zolta/libZolta.so, seen from this program)</source>
        <translation>エディターのライブラリー (既定値: このプログラムから見て ../lib/zolta/libZolta.so)</translation>
    </message>
    <message>
        <source>the channel alone instead of its stereo pair</source>
        <translation>ステレオペアではなくチャンネル単独</translation>
    </message>
    <message>
        <source>zoom, 0.5 to 4 (default: 1)</source>
        <translation>画面のズーム、0.5 から 4 (既定値: 1)</translation>
    </message>
    <message>
        <source>sampling rate of the curve, 1000 to 768000 (default: 48000)</source>
        <translation>カーブのサンプリング周波数、1000 から 768000 (既定値: 48000)</translation>
    </message>
    <message>
        <source>the session to restore and to save at the end (default: with a window, the one in the user's data; without one, none; without a window a session is only read)</source>
        <translation>復元し、終了時に保存するセッション (既定値: ウィンドウありではユーザーデータのもの、ウィンドウなしではなし。ウィンドウなしではセッションを読み込むだけ)</translation>
    </message>
    <message>
        <source>load the channel's settings: a state of 116 bytes or a .vstpreset</source>
        <translation>チャンネルの設定を読み込む (116 バイトのステートまたは .vstpreset)</translation>
    </message>
    <message>
        <source>set a parameter as if TEXT were typed, or with NAME=@N to the raw integer N; repeatable, after --state</source>
        <translation>TEXT を入力したときと同じようにパラメーターを設定。NAME=@N では内部値の整数 N に設定。繰り返し可、--state の後に適用</translation>
    </message>
    <message>
        <source>English, German or Japanese (default: en)</source>
        <translation>英語、ドイツ語、日本語 (既定値: en)</translation>
    </message>
    <message>
        <source>play a WAV, FLAC or OGG file through the channel's equalizer</source>
        <translation>WAV、FLAC、OGG ファイルをチャンネルのイコライザーを通して再生</translation>
    </message>
    <message>
        <source>repeat the file</source>
        <translation>ファイルを繰り返し再生</translation>
    </message>
    <message>
        <source>play the sound device's inputs instead</source>
        <translation>代わりにオーディオデバイスの入力を再生</translation>
    </message>
    <message>
        <source>the sound device, or a part of its name (default: the system's default device)</source>
        <translation>オーディオデバイスまたはその名前の一部 (既定値: システムの既定のデバイス)</translation>
    </message>
    <message>
        <source>the device's sampling rate (default: the file's, if the device has it)</source>
        <translation>デバイスのサンプリング周波数 (既定値: デバイスが対応していればファイルと同じ)</translation>
    </message>
    <message>
        <source>the device's block size, 16 to 8192 (default: the device's own)</source>
        <translation>デバイスのブロックサイズ、16 から 8192 (既定値: デバイスの既定値)</translation>
    </message>
    <message>
        <source>These are carried out in this order, without a window; then the program ends:</source>
        <translation>ウィンドウを開かず次の順に実行して終了するオプション:</translation>
    </message>
    <message>
        <source>print the channel's parameters: name, id, minimum, maximum, default, raw value and text, separated by tabs</source>
        <translation>チャンネルのパラメーターを出力 (名前、ID、最小値、最大値、初期値、内部値、テキストのタブ区切り)</translation>
    </message>
    <message>
        <source>write the channel's settings, as a preset if FILE ends in .vstpreset</source>
        <translation>チャンネルの設定を書き出す。FILE が .vstpreset で終わる場合はプリセットとして書き出す</translation>
    </message>
    <message>
        <source>write a picture of the editor</source>
        <translation>エディターの画像を書き出す</translation>
    </message>
    <message>
        <source>These do their work alone, without an editor:</source>
        <translation>エディターを使わず単独で実行するオプション:</translation>
    </message>
    <message>
        <source>print the sound devices: name, outputs, inputs, preferred rate in Hz and remarks, separated by tabs</source>
        <translation>オーディオデバイスを出力 (名前、出力数、入力数、推奨サンプリング周波数 (Hz)、備考のタブ区切り)</translation>
    </message>
    <message>
        <source>send a WAV, FLAC or OGG file through the channel's equalizer into a new one whose name ends in .wav, .flac or .ogg; the settings are those of --channel in --session, then --state, then --set</source>
        <translation>WAV、FLAC、OGG ファイルをチャンネルのイコライザーに通し、名前が .wav、.flac、.ogg で終わる新しいファイルに書き出す。設定は --session の --channel のもの、次に --state、次に --set の順に適用</translation>
    </message>
    <message>
        <source>write 32-bit floats into a .wav file, whatever the format of IN</source>
        <translation>IN の形式に関係なく .wav ファイルに 32 ビット浮動小数点で書き出す</translation>
    </message>
    <message>
        <source>--%1 must be one of these: %2. It cannot be &quot;%3&quot;.</source>
        <translation>--%1 には次のいずれかを指定してください: %2。「%3」は指定できません。</translation>
    </message>
    <message>
        <source>--set %1: &quot;@%2&quot; is not a raw value of %3 (@%4 to @%5).</source>
        <translation>--set %1: 「@%2」は%3の内部値ではありません (@%4 から @%5)。</translation>
    </message>
    <message>
        <source>--set %1: &quot;%2&quot; is not a value of %3 (%4).</source>
        <translation>--set %1: 「%2」は%3の値ではありません (%4)。</translation>
    </message>
    <message>
        <source>--%1 must be the name of a file.</source>
        <translation>--%1 にはファイル名を指定してください。</translation>
    </message>
    <message>
        <source>--%1 must be a whole number from %2 to %3, not &quot;%4&quot;.</source>
        <translation>--%1 には「%4」ではなく %2 から %3 までの整数を指定してください。</translation>
    </message>
    <message>
        <source>--%1 must be a number from %2 to %3, not &quot;%4&quot;.</source>
        <translation>--%1 には「%4」ではなく %2 から %3 までの数値を指定してください。</translation>
    </message>
    <message>
        <source>--set must be NAME=TEXT or NAME=@N, not &quot;%1&quot;.</source>
        <translation>--set には「%1」ではなく NAME=TEXT または NAME=@N を指定してください。</translation>
    </message>
    <message>
        <source>--set: there is no parameter &quot;%1&quot;. See --list for all of them.</source>
        <translation>--set: パラメーター「%1」はありません。--list ですべて表示できます。</translation>
    </message>
    <message>
        <source>Warning: Samples in %2 that are NaN or larger than %3 and count as 0: %1; the first is in frame %4 of channel %5.</source>
        <translation>警告: %2 のサンプルのうち、NaN または %3 より大きいため 0 とみなすもの: %1 個。最初のものはチャンネル %5 のフレーム %4 にあります。</translation>
    </message>
    <message>
        <source>Warning: Clipped samples in %2: %1; a lower output level or --float avoids clipping.</source>
        <translation>警告: %2 でクリップしたサンプル: %1 個。出力レベルを下げるか --float を使うとクリップを避けられます。</translation>
    </message>
    <message>
        <source>The text cannot be printed: %1.</source>
        <translation>テキストを出力できません: %1。</translation>
    </message>
    <message>
        <source>One file too many: &quot;%1&quot;. One sound file can be played, and --render takes two.</source>
        <translation>ファイルが 1 つ多すぎます: 「%1」。再生できるオーディオファイルは 1 つで、--render には 2 つ必要です。</translation>
    </message>
    <message>
        <source>The file %1 exists and is left as it is. Choose another name, or use --overwrite to replace it.</source>
        <translation>ファイル %1 はすでに存在するため、そのまま残します。別の名前にするか、--overwrite で置き換えてください。</translation>
    </message>
    <message>
        <source>The file %1 exists. Replace it? [y/N]</source>
        <translation>ファイル %1 はすでに存在します。置き換えますか? [y/N]</translation>
    </message>
    <message>
        <source>Usage: zolta-host [options] [SOUND]
A mixer with 2 to 32 channels that opens the channel equalizer&apos;s editor.
</source>
        <translation>使い方: zolta-host [オプション] [SOUND]
チャンネルイコライザーのエディターを開く 2 から 32 チャンネルのミキサー。
</translation>
    </message>
    <message>
        <source>replace OUT without asking; otherwise a terminal asks, and anything else refuses</source>
        <translation>OUT を確認せずに置き換える。指定しない場合、端末では確認し、それ以外では中止する</translation>
    </message>
    <message>
        <source>say which version this is</source>
        <translation>バージョンを表示</translation>
    </message>
    <message>
        <source>show this help (also -h)</source>
        <translation>このヘルプを表示 (-h も可)</translation>
    </message>
    <message>
        <source>whether the meters move (default: on in windows, where they show each strip&apos;s source; otherwise off; on, a picture shows a test signal after one second)</source>
        <translation>メーターを動かすかどうか (既定値: ウィンドウありでは on で、各ストリップのソースを表示。それ以外では off。on のとき画像には 1 秒後のテスト信号が写る)</translation>
    </message>
    <message>
        <source>No window can be opened: the display (DISPLAY or WAYLAND_DISPLAY) does not answer. Log in to a desktop, or set them to its display. Without one, use --list, --save-state FILE, --screenshot FILE.png, --render IN OUT or --help.</source>
        <translation>ウィンドウを開けません。ディスプレイ (DISPLAY または WAYLAND_DISPLAY) が応答しません。デスクトップにログインするか、そのディスプレイを設定してください。ディスプレイなしでは --list、--save-state FILE、--screenshot FILE.png、--render IN OUT、--help を使えます。</translation>
    </message>
    <message>
        <source>There is no sound device. Connect one, or start a sound server (PipeWire, PulseAudio or JACK).</source>
        <translation>オーディオデバイスがありません。デバイスを接続するか、サウンドサーバー (PipeWire、PulseAudio、JACK) を起動してください。</translation>
    </message>
    <message>
        <source>the channel to open, counted from 0 (default: 0); windows count from 1</source>
        <translation>開くチャンネル。0 から数える (既定値: 0)。ウィンドウでは 1 から数える</translation>
    </message>
    <message>
        <source>equalize everything that the desktop plays through PipeWire as long as the editor is open, instead of opening the mixer; its settings are kept for the next time</source>
        <translation>ミキサーを開く代わりに、エディターが開いている間、デスクトップが PipeWire で再生するすべての音をイコライザーに通す。設定は次回のために保存される</translation>
    </message>
    <message>
        <source>--%1 must be an even number from %2 to %3, not &quot;%4&quot;.</source>
        <translation>--%1 には「%4」ではなく %2 から %3 までの偶数を指定してください。</translation>
    </message>
    <message>
        <source>--channel must be a whole number from 0 to %1, not &quot;%2&quot;: the mixer has %3 channels.</source>
        <translation>--channel には「%2」ではなく 0 から %1 までの整数を指定してください。ミキサーのチャンネル数は %3 です。</translation>
    </message>
    <message>
        <source>how many channels the mixer has, an even number from 2 to 32 (default: as many as the session has; a new one has 8)</source>
        <translation>ミキサーのチャンネル数。2 から 32 までの偶数 (既定値: セッションのチャンネル数。新しいセッションでは 8)</translation>
    </message>
</context>
<context>
    <name>CommonController_MemAPI</name>
    <message>
        <source>Parameter %1</source>
        <translation>パラメーター %1</translation>
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
        <translation>プラグイン %1 はライブラリーですが、このプログラムで読み込める Qt プラグインではありません。</translation>
    </message>
    <message>
        <source>The plug-in %1 is a Qt plug-in of another kind (%2, not %3).</source>
        <translation>プラグイン %1 は別の種類の Qt プラグインです (%3 ではなく %2)。</translation>
    </message>
    <message>
        <source>The plug-in %1 cannot be loaded: %2.</source>
        <translation>プラグイン %1 を読み込めません: %2。</translation>
    </message>
    <message>
        <source>The plug-in %1 does not provide a channel effect.</source>
        <translation>プラグイン %1 にはチャンネルエフェクトがありません。</translation>
    </message>
    <message>
        <source>The plug-in %1 is an effect of type %2; an equalizer is type %3.</source>
        <translation>プラグイン %1 はタイプ %2 のエフェクトです。イコライザーはタイプ %3 です。</translation>
    </message>
</context>
<context>
    <name>LibraryFile</name>
    <message>
        <source>The plug-in %1 does not exist.</source>
        <translation>プラグイン %1 はありません。</translation>
    </message>
    <message>
        <source>The plug-in %1 is a folder, not a library.</source>
        <translation>プラグイン %1 はライブラリーではなくフォルダーです。</translation>
    </message>
    <message>
        <source>The plug-in %1 is not a regular file.</source>
        <translation>プラグイン %1 は通常のファイルではありません。</translation>
    </message>
    <message>
        <source>The plug-in %1 cannot be read: %2.</source>
        <translation>プラグイン %1 を読み込めません: %2。</translation>
    </message>
    <message>
        <source>The plug-in %1 is not a library.</source>
        <translation>プラグイン %1 はライブラリーではありません。</translation>
    </message>
    <message>
        <source>The plug-in %1 is a library that was cut short.</source>
        <translation>プラグイン %1 は途中で切れたライブラリーです。</translation>
    </message>
</context>
<context>
    <name>OutputFile</name>
    <message>
        <source>The file %1 cannot be written: %2.</source>
        <translation>ファイル %1 に書き込めません: %2。</translation>
    </message>
    <message>
        <source>The file %1 cannot be written: it is a folder.</source>
        <translation>ファイル %1 に書き込めません。フォルダーです。</translation>
    </message>
    <message>
        <source>The file %1 cannot be written: it is not a regular file.</source>
        <translation>ファイル %1 に書き込めません。通常のファイルではありません。</translation>
    </message>
</context>
<context>
    <name>RtAudioDevice</name>
    <message>
        <source>No sound device can be used while %1 is not responding.</source>
        <translation>%1 が応答しない間は、オーディオデバイスを使用できません。</translation>
    </message>
    <message>
        <source>The sound device %1 was disconnected.</source>
        <translation>オーディオデバイス %1 の接続が切れました。</translation>
    </message>
    <message>
        <source>The sound device %1 cannot be used (%2). Another program may be using it: close that one, or choose another device.</source>
        <translation>オーディオデバイス %1 を使用できません (%2)。別のプログラムが使用している可能性があります。そのプログラムを閉じるか、別のデバイスを選んでください。</translation>
    </message>
</context>
<context>
    <name>SessionData</name>
    <message>
        <source>%1 is %2, but must be between %3 and %4.</source>
        <translation>%1 は %2 ですが、%3 から %4 の間でなければなりません。</translation>
    </message>
    <message>
        <source>%1 cannot be read. %2</source>
        <translation>%1 を読み込めません。%2</translation>
    </message>
    <message>
        <source>%1 cannot be set to &quot;%2&quot;.</source>
        <translation>%1 を「%2」に設定できません。</translation>
    </message>
    <message>
        <source>%1 must be true or false.</source>
        <translation>%1 は true または false でなければなりません。</translation>
    </message>
    <message>
        <source>%1 must be a number.</source>
        <translation>%1 は数値でなければなりません。</translation>
    </message>
    <message>
        <source>%1 must be text.</source>
        <translation>%1 はテキストでなければなりません。</translation>
    </message>
    <message>
        <source>%1 must be a list.</source>
        <translation>%1 はリストでなければなりません。</translation>
    </message>
    <message>
        <source>%1 must be an object.</source>
        <translation>%1 はオブジェクトでなければなりません。</translation>
    </message>
    <message>
        <source>%1 must be A or B.</source>
        <translation>%1 は A または B でなければなりません。</translation>
    </message>
    <message>
        <source>%1 has %2 entries, but the mixer has %3 channels.</source>
        <translation>%1 の項目は %2 個ですが、ミキサーのチャンネルは %3 個です。</translation>
    </message>
    <message>
        <source>The file is not a session file.</source>
        <translation>ファイルはセッションファイルではありません。</translation>
    </message>
    <message>
        <source>The file has version %1, which this program does not know.</source>
        <translation>ファイルのバージョン %1 は、このプログラムでは扱えません。</translation>
    </message>
    <message>
        <source>%1 is %2, but must be an even number.</source>
        <translation>%1 は %2 ですが、偶数でなければなりません。</translation>
    </message>
</context>
<context>
    <name>StateFile</name>
    <message>
        <source>The state file %1 is empty.</source>
        <translation>ステートファイル %1 は空です。</translation>
    </message>
    <message>
        <source>The state file %1 is too long: it holds more than a megabyte, where a state has %2 bytes.</source>
        <translation>ステートファイル %1 は長すぎます。ステートは %2 バイトですが、1 メガバイトを超えています。</translation>
    </message>
    <message>
        <source>The state file %1 is neither an equalizer state nor a preset: it begins with the bytes %2.</source>
        <translation>ステートファイル %1 はイコライザーのステートでもプリセットでもありません。先頭のバイトは %2 です。</translation>
    </message>
    <message>
        <source>The state file %1 is cut short: it holds %2 of the %3 bytes of a state.</source>
        <translation>ステートファイル %1 は途中で切れています。ステートの %3 バイトのうち %2 バイトしかありません。</translation>
    </message>
    <message>
        <source>The state file %1 is too long: it holds %2 bytes, where a state has %3.</source>
        <translation>ステートファイル %1 は長すぎます。ステートは %3 バイトですが、%2 バイトあります。</translation>
    </message>
    <message>
        <source>The state file %1 is a preset whose state is not an equalizer state: it begins with the bytes %2.</source>
        <translation>ステートファイル %1 はプリセットですが、ステートがイコライザーのものではありません。先頭のバイトは %2 です。</translation>
    </message>
    <message>
        <source>The state file %1 is a preset cut short: it ends inside its header.</source>
        <translation>ステートファイル %1 は途中で切れたプリセットです。ヘッダーの途中で終わっています。</translation>
    </message>
    <message>
        <source>The state file %1 is a preset of the unknown format version %2.</source>
        <translation>ステートファイル %1 は不明な形式バージョン %2 のプリセットです。</translation>
    </message>
    <message>
        <source>The state file %1 is a preset of another plug-in (class %2, not %3).</source>
        <translation>ステートファイル %1 は別のプラグインのプリセットです (クラスは %3 ではなく %2)。</translation>
    </message>
    <message>
        <source>The state file %1 is a preset cut short: its list of chunks is missing.</source>
        <translation>ステートファイル %1 は途中で切れたプリセットです。チャンクリストがありません。</translation>
    </message>
    <message>
        <source>The state file %1 is a damaged preset: its list of chunks is not where it should be.</source>
        <translation>ステートファイル %1 は壊れたプリセットです。チャンクリストが本来の位置にありません。</translation>
    </message>
    <message>
        <source>The state file %1 is a damaged preset: it claims %2 chunks.</source>
        <translation>ステートファイル %1 は壊れたプリセットです。チャンク数が %2 となっています。</translation>
    </message>
    <message>
        <source>The state file %1 is a preset cut short: it ends inside its list of chunks.</source>
        <translation>ステートファイル %1 は途中で切れたプリセットです。チャンクリストの途中で終わっています。</translation>
    </message>
    <message>
        <source>The state file %1 is a damaged preset: its chunk %2 lies outside the file.</source>
        <translation>ステートファイル %1 は壊れたプリセットです。チャンク %2 がファイルの範囲外にあります。</translation>
    </message>
    <message>
        <source>The state file %1 is a preset without a state.</source>
        <translation>ステートファイル %1 はステートのないプリセットです。</translation>
    </message>
    <message>
        <source>The state file %1 is a preset whose state has %2 bytes instead of %3.</source>
        <translation>ステートファイル %1 はプリセットですが、ステートが %3 バイトではなく %2 バイトです。</translation>
    </message>
    <message>
        <source>The state file %1 holds %2 for %3 (%4), but values must lie between 0 and 1.</source>
        <translation>ステートファイル %1 では %3 (%4) の値が %2 ですが、値は 0 から 1 の間でなければなりません。</translation>
    </message>
    <message>
        <source>The state file %1 is a folder.</source>
        <translation>ステートファイル %1 はフォルダーです。</translation>
    </message>
    <message>
        <source>The state file %1 is not a regular file.</source>
        <translation>ステートファイル %1 は通常のファイルではありません。</translation>
    </message>
    <message>
        <source>The state file %1 cannot be read: %2.</source>
        <translation>ステートファイル %1 を読み込めません: %2。</translation>
    </message>
</context>
<context>
    <name>ZoltaEqualizerGraph</name>
    <message>
        <source>Equalizer curve</source>
        <translation>イコライザーカーブ</translation>
    </message>
    <message>
        <source>Low band</source>
        <translation>ロー バンド</translation>
    </message>
    <message>
        <source>Middle 1 band</source>
        <translation>ミドル1 バンド</translation>
    </message>
    <message>
        <source>Middle 2 band</source>
        <translation>ミドル2 バンド</translation>
    </message>
    <message>
        <source>Middle 3 band</source>
        <translation>ミドル3 バンド</translation>
    </message>
    <message>
        <source>Middle 4 band</source>
        <translation>ミドル4 バンド</translation>
    </message>
    <message>
        <source>High band</source>
        <translation>ハイ バンド</translation>
    </message>
</context>
<context>
    <name>JackDevice</name>
    <message>
        <source>The sound device %1 was disconnected. It plays on as soon as it is back.</source>
        <translation>オーディオデバイス %1 の接続が切れました。再接続されると再生を続けます。</translation>
    </message>
    <message>
        <source>The sound device %1 is not responding.</source>
        <translation>オーディオデバイス %1 が応答しません。</translation>
    </message>
</context>
<context>
    <name>LibraryTrial</name>
    <message>
        <source>The plug-in %1 cannot be loaded: it crashes (%2). Its file may be damaged.</source>
        <translation>プラグイン %1 を読み込めません: クラッシュします (%2)。ファイルが壊れている可能性があります。</translation>
    </message>
    <message>
        <source>The plug-in %1 cannot be loaded: it ends the program that loads it.</source>
        <translation>プラグイン %1 を読み込めません: 読み込んだプログラムを終了させます。</translation>
    </message>
    <message>
        <source>The plug-in %1 cannot be loaded: it takes longer than %2 seconds.</source>
        <translation>プラグイン %1 を読み込めません: %2 秒以上かかっています。</translation>
    </message>
    <message>
        <source>The plug-in %1 cannot be tried in a process of its own: %2.</source>
        <translation>プラグイン %1 を別のプロセスで確認できません: %2。</translation>
    </message>
</context>
<context>
    <name>FileMenu</name>
    <message>
        <source>&amp;New Session...</source>
        <translation>新しいセッション(&amp;N)...</translation>
    </message>
    <message>
        <source>&amp;Open Audio...</source>
        <translation>オーディオファイルを開く(&amp;O)...</translation>
    </message>
    <message>
        <source>&amp;Save Session As...</source>
        <translation>セッションに名前を付けて保存(&amp;S)...</translation>
    </message>
    <message>
        <source>New Session</source>
        <translation>新しいセッション</translation>
    </message>
    <message>
        <source>Open &amp;Recent</source>
        <translation>最近使ったファイル(&amp;R)</translation>
    </message>
    <message>
        <source>Open Audio</source>
        <translation>オーディオファイルを開く</translation>
    </message>
    <message>
        <source>Open S&amp;ession...</source>
        <translation>セッションを開く(&amp;E)...</translation>
    </message>
    <message>
        <source>Open Session</source>
        <translation>セッションを開く</translation>
    </message>
    <message>
        <source>Render &amp;To File...</source>
        <translation>ファイルに書き出す(&amp;T)...</translation>
    </message>
    <message>
        <source>Save Session As</source>
        <translation>セッションに名前を付けて保存</translation>
    </message>
    <message>
        <source>Sessions (*.json);;All files (*)</source>
        <translation>セッション (*.json);;すべてのファイル (*)</translation>
    </message>
    <message>
        <source>Sound files (*.wav *.flac *.ogg *.aif *.aiff *.mp3);;All files (*)</source>
        <translation>オーディオファイル (*.wav *.flac *.ogg *.aif *.aiff *.mp3);;すべてのファイル (*)</translation>
    </message>
    <message>
        <source>Render through %1</source>
        <translation>%1 を通して書き出す</translation>
    </message>
    <message>
        <source>Sound files (*.wav *.flac *.ogg)</source>
        <translation>オーディオファイル (*.wav *.flac *.ogg)</translation>
    </message>
</context>
<context>
    <name>GraphRange</name>
    <message>
        <source>&amp;Automatic</source>
        <translation>自動(&amp;A)</translation>
    </message>
</context>
<context>
    <name>HelpMenu</name>
    <message>
        <source>&amp;About Zolta</source>
        <translation>Zolta について(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Guide</source>
        <translation>ガイド(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Keys and Mouse</source>
        <translation>キーとマウス(&amp;K)</translation>
    </message>
    <message>
        <source>A channel equalizer whose curve is what is heard, and a mixer to hear it with.</source>
        <translation>カーブどおりに聞こえるチャンネルイコライザーと、それを聴くためのミキサー。</translation>
    </message>
    <message>
        <source>Compare</source>
        <translation>比べる</translation>
    </message>
    <message>
        <source>Ctrl+B</source>
        <translation>Ctrl+B キー</translation>
    </message>
    <message>
        <source>Ctrl+E, Ctrl+M</source>
        <translation>Ctrl+E、Ctrl+M</translation>
    </message>
    <message>
        <source>Ctrl+Home, Ctrl+Shift+L</source>
        <translation>Ctrl+Home、Ctrl+Shift+L</translation>
    </message>
    <message>
        <source>Ctrl+O, Ctrl+Shift+R</source>
        <translation>Ctrl+O、Ctrl+Shift+R</translation>
    </message>
    <message>
        <source>Ctrl+R, Ctrl+L</source>
        <translation>Ctrl+R、Ctrl+L</translation>
    </message>
    <message>
        <source>Ctrl+Z, Ctrl+Shift+Z</source>
        <translation>Ctrl+Z、Ctrl+Shift+Z</translation>
    </message>
    <message>
        <source>Curve: drag a handle</source>
        <translation>カーブ: ハンドルをドラッグ</translation>
    </message>
    <message>
        <source>File &gt; Open Audio, or drop the file on the window. The marked strip plays it; Space plays and stops.</source>
        <translation>「ファイル &gt; オーディオファイルを開く」を選ぶか、ファイルをウィンドウにドロップします。選択中のストリップが再生し、スペースキーで再生と停止を切り替えます。</translation>
    </message>
    <message>
        <source>File &gt; Render To File sends the whole song through the equalizer of the marked strip into a new file.</source>
        <translation>「ファイル &gt; ファイルに書き出す」は、曲全体を選択中のストリップのイコライザーに通して新しいファイルに書き出します。</translation>
    </message>
    <message>
        <source>Free software under the GNU General Public License, version 3 or later.</source>
        <translation>GNU General Public License バージョン 3 以降で公開されているフリーソフトウェアです。</translation>
    </message>
    <message>
        <source>Keep it</source>
        <translation>保存する</translation>
    </message>
    <message>
        <source>Knob or number: double click</source>
        <translation>ノブまたは数値: ダブルクリック</translation>
    </message>
    <message>
        <source>Knob: Ctrl+click</source>
        <translation>ノブ: Ctrl+クリック</translation>
    </message>
    <message>
        <source>Knob: drag, wheel, arrow keys</source>
        <translation>ノブ: ドラッグ、ホイール、矢印キー</translation>
    </message>
    <message>
        <source>Open a song</source>
        <translation>曲を開く</translation>
    </message>
    <message>
        <source>Shape it</source>
        <translation>音を整える</translation>
    </message>
    <message>
        <source>Space</source>
        <translation>スペースキー</translation>
    </message>
    <message>
        <source>Tab</source>
        <translation>Tab キー</translation>
    </message>
    <message>
        <source>The Edit key of a strip opens its equalizer. Drag the coloured handles in the curve, or turn the knobs: up is more. Presets has good places to begin.</source>
        <translation>ストリップの「編集」キーでイコライザーが開きます。カーブの色付きハンドルをドラッグするか、ノブを回します (上へ動かすと大きくなります)。「プリセット」には出発点になる設定があります。</translation>
    </message>
    <message>
        <source>The session is saved by itself. File &gt; Save Session As keeps it under a name, Presets &gt; Save as Preset keeps the settings of one equalizer.</source>
        <translation>セッションは自動的に保存されます。「ファイル &gt; セッションに名前を付けて保存」で名前を付けて残せます。「プリセット」では 1 つのイコライザーの設定を保存できます。</translation>
    </message>
    <message>
        <source>Write a file</source>
        <translation>ファイルに書き出す</translation>
    </message>
    <message>
        <source>back to its default</source>
        <translation>初期値に戻す</translation>
    </message>
    <message>
        <source>frequency and gain; with Alt frequency alone, with Ctrl gain alone, with Shift the width of a middle band</source>
        <translation>周波数とゲイン。Alt で周波数だけ、Ctrl でゲインだけ、Shift で中域バンドの幅</translation>
    </message>
    <message>
        <source>from the mixer to the editor, and back</source>
        <translation>ミキサーからエディターへ、エディターからミキサーへ</translation>
    </message>
    <message>
        <source>measured response; table of parameters</source>
        <translation>測定した周波数特性、パラメーター表</translation>
    </message>
    <message>
        <source>play or stop</source>
        <translation>再生または停止</translation>
    </message>
    <message>
        <source>return to the start; loop</source>
        <translation>先頭に戻る、ループ</translation>
    </message>
    <message>
        <source>switch between A and B</source>
        <translation>A と B を切り替える</translation>
    </message>
    <message>
        <source>to the next control; Space presses a key</source>
        <translation>次のコントロールへ。スペースでキーを押す</translation>
    </message>
    <message>
        <source>turn it; with Shift, finely</source>
        <translation>回す。Shift で細かく</translation>
    </message>
    <message>
        <source>type a value, such as 1.25k or +3</source>
        <translation>1.25k や +3 のように値を入力する</translation>
    </message>
    <message>
        <source>undo and redo every gesture</source>
        <translation>操作の取り消しとやり直し</translation>
    </message>
    <message>
        <source>open a song; in the mixer: render it to a file</source>
        <translation>曲を開く。ミキサーで: ファイルに書き出す</translation>
    </message>
    <message>
        <source>A and B above the equalizer are two settings (Ctrl+B switches). The EQ key of the strip switches the equalizer off and on. Bypass plays past it at equal loudness; Listen, while held, plays only what one band changes.</source>
        <translation>イコライザーの上の A と B は 2 組の設定です (Ctrl+B で切り替え)。ストリップの EQ キーでイコライザーをオフ、オンします。「バイパス」は同じ音量でイコライザーを通さずに、「試聴」は押している間 1 つのバンドによる変化だけを再生します。</translation>
    </message>
    <message>
        <source>Ctrl+Shift+B, L</source>
        <translation>Ctrl+Shift+B、L</translation>
    </message>
    <message>
        <source>bypass at equal loudness; while held, hear only what the band changes</source>
        <translation>同じ音量でバイパス、押している間バンドによる変化だけを試聴</translation>
    </message>
    <message>
        <source>Ctrl+PgUp, Ctrl+PgDown</source>
        <translation>Ctrl+PgUp、Ctrl+PgDown</translation>
    </message>
    <message>
        <source>previous preset; next preset</source>
        <translation>前のプリセット、次のプリセット</translation>
    </message>
</context>
<context>
    <name>RenderDialog</name>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Clipped samples: %1. A lower output level avoids clipping.</source>
        <translation>クリップしたサンプル数: %1。出力レベルを下げるとクリップを避けられます。</translation>
    </message>
    <message>
        <source>Render To File</source>
        <translation>ファイルに書き出す</translation>
    </message>
    <message>
        <source>Writing %1</source>
        <translation>%1 に書き出しています</translation>
    </message>
</context>
<context>
    <name>TransportMenu</name>
    <message>
        <source>&amp;Loop</source>
        <translation>ループ(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Play or Stop</source>
        <translation>再生または停止(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Return to Start</source>
        <translation>先頭に戻る(&amp;R)</translation>
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
        <translation>%1 dB、クリップ</translation>
    </message>
</context>
<context>
    <name>MasterStrip</name>
    <message>
        <source>Master</source>
        <translation>マスター</translation>
    </message>
    <message>
        <source>Mute</source>
        <translation>ミュート</translation>
    </message>
    <message>
        <source>Mute of the master</source>
        <translation>マスターのミュート</translation>
    </message>
    <message>
        <source>Dim</source>
        <translation>ディム</translation>
    </message>
    <message>
        <source>Plays 20 dB quieter</source>
        <translation>20 dB 下げて再生</translation>
    </message>
    <message>
        <source>Mono</source>
        <translation>モノラル</translation>
    </message>
    <message>
        <source>Plays both sides as one</source>
        <translation>左右を 1 つにまとめて再生</translation>
    </message>
    <message>
        <source>Fader of the master</source>
        <translation>マスターのフェーダー</translation>
    </message>
    <message>
        <source>Level of the master</source>
        <translation>マスターのレベル</translation>
    </message>
    <message>
        <source>Highest level of the master</source>
        <translation>マスターの最高レベル</translation>
    </message>
    <message>
        <source>Meter of the master, left</source>
        <translation>マスターのメーター、左</translation>
    </message>
    <message>
        <source>Peak of the master, left</source>
        <translation>マスターのピーク、左</translation>
    </message>
    <message>
        <source>Meter of the master, right</source>
        <translation>マスターのメーター、右</translation>
    </message>
    <message>
        <source>Peak of the master, right</source>
        <translation>マスターのピーク、右</translation>
    </message>
</context>
<context>
    <name>ControlTips</name>
    <message>
        <source>Click: all gains to 0 dB, the outer bands to shelves
Hold for a second: everything but the drive to its default</source>
        <translation>クリック: すべてのゲインを 0 dB に、両端のバンドをシェルフに
1 秒間押し続ける: ドライブ以外をすべて初期値に</translation>
    </message>
    <message>
        <source>Drag, wheel or arrow keys: change (with Shift finely)
Double-click: type a value
Ctrl+click: default</source>
        <translation>ドラッグ、ホイール、矢印キー: 変更 (Shift で微調整)
ダブルクリック: 値を入力
Ctrl+クリック: 初期値</translation>
    </message>
    <message>
        <source>Double-click or Return: type a value, for example 1.25k or +3
Drag or wheel: change (with Shift finely)
Ctrl+click: default</source>
        <translation>ダブルクリックまたは Return: 値を入力 (例: 1.25k、+3)
ドラッグ、ホイール: 変更 (Shift で微調整)
Ctrl+クリック: 初期値</translation>
    </message>
    <message>
        <source>Drag a handle: frequency and gain
with Shift the quality, with Ctrl only the gain, with Alt only the frequency
Tab and arrow keys: the same by keyboard</source>
        <translation>ハンドルをドラッグ: 周波数とゲイン
Shift で Q、Ctrl でゲインのみ、Alt で周波数のみ
Tab と矢印キー: キーボードで同じ操作</translation>
    </message>
    <message>
        <source>Click: press</source>
        <translation>クリック: 押す</translation>
    </message>
    <message>
        <source>Click: switch</source>
        <translation>クリック: 切り替え</translation>
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
        <translation>PipeWire が動作していないため、デスクトップイコライザーから音が出ません。「systemctl --user start pipewire wireplumber」で起動すると、自動的に再生が始まります。</translation>
    </message>
    <message>
        <source>The desktop equalizer has no sound because PipeWire runs without a session manager. Start one with &quot;systemctl --user start wireplumber&quot;; the equalizer then plays by itself.</source>
        <translation>PipeWire がセッションマネージャーなしで動作しているため、デスクトップイコライザーから音が出ません。「systemctl --user start wireplumber」で起動すると、自動的に再生が始まります。</translation>
    </message>
</context>
<context>
    <name>AnalyzerView</name>
    <message>
        <source>Frequency</source>
        <translation>周波数</translation>
    </message>
    <message>
        <source>Note</source>
        <translation>音名</translation>
    </message>
    <message>
        <source>Before</source>
        <translation>EQ前</translation>
    </message>
    <message>
        <source>After</source>
        <translation>EQ後</translation>
    </message>
    <message>
        <source>Difference</source>
        <translation>差</translation>
    </message>
    <message>
        <source>Peak</source>
        <translation>ピーク</translation>
    </message>
    <message>
        <source>Curve</source>
        <translation>カーブ</translation>
    </message>
    <message>
        <source>Measured</source>
        <translation>測定</translation>
    </message>
    <message>
        <source>Nothing is played</source>
        <translation>再生していません</translation>
    </message>
</context>
<context>
    <name>AnalyzerBar</name>
    <message>
        <source>Analyzer</source>
        <translation>アナライザー</translation>
    </message>
    <message>
        <source>No smoothing</source>
        <translation>平滑化なし</translation>
    </message>
    <message>
        <source>1 octave</source>
        <translation>1 オクターブ</translation>
    </message>
    <message>
        <source>1/%1 octave</source>
        <translation>1/%1 オクターブ</translation>
    </message>
    <message>
        <source>No tilt</source>
        <translation>傾斜なし</translation>
    </message>
    <message>
        <source>%1 dB/octave</source>
        <translation>%1 dB/オクターブ</translation>
    </message>
    <message>
        <source>Peak hold</source>
        <translation>ピークホールド</translation>
    </message>
    <message>
        <source>Keep the highest levels in view</source>
        <translation>最大レベルを表示し続けます</translation>
    </message>
    <message>
        <source>Curve</source>
        <translation>カーブ</translation>
    </message>
    <message>
        <source>Show the equalizer's curve, drawn and measured</source>
        <translation>イコライザーのカーブを、計算値と測定値で表示します</translation>
    </message>
    <message>
        <source>Freeze</source>
        <translation>フリーズ</translation>
    </message>
    <message>
        <source>Keep the picture as it is</source>
        <translation>表示をそのまま止めます</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>リセット</translation>
    </message>
    <message>
        <source>Begin averages and peaks anew</source>
        <translation>平均とピークを最初からやり直します</translation>
    </message>
    <message>
        <source>Samples of a transform</source>
        <translation>変換のサンプル数</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>窓関数</translation>
    </message>
    <message>
        <source>Hann</source>
        <translation>ハン</translation>
    </message>
    <message>
        <source>Blackman-Harris</source>
        <translation>ブラックマン・ハリス</translation>
    </message>
    <message>
        <source>Flat top</source>
        <translation>フラットトップ</translation>
    </message>
    <message>
        <source>Smoothing</source>
        <translation>平滑化</translation>
    </message>
    <message>
        <source>Tilt</source>
        <translation>傾斜</translation>
    </message>
    <message>
        <source>Speed</source>
        <translation>速度</translation>
    </message>
    <message>
        <source>Fast</source>
        <translation>速い</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>中</translation>
    </message>
    <message>
        <source>Slow</source>
        <translation>遅い</translation>
    </message>
    <message>
        <source>Infinite</source>
        <translation>無限</translation>
    </message>
    <message>
        <source>%1 samples</source>
        <translation>%1 サンプル</translation>
    </message>
</context>
<context>
    <name>ToolBarExtension</name>
    <message>
        <source>More</source>
        <translation>その他</translation>
    </message>
</context>
<context>
    <name>AuditionBar</name>
    <message>
        <source>Bypass at &amp;Equal Loudness</source>
        <translation>同じ音量でバイパス(&amp;E)</translation>
    </message>
    <message>
        <source>Bypass at equal loudness</source>
        <translation>同じ音量でバイパス</translation>
    </message>
    <message>
        <source>Settings %1</source>
        <translation>設定 %1</translation>
    </message>
    <message>
        <source>Hear the sound without the equalizer, as loud as with it (Ctrl+Shift+B). The loudness is measured while it plays.</source>
        <translation>イコライザーを通さない音を、通した音と同じ音量で聴きます (Ctrl+Shift+B)。音量は再生中に測ります。</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>ロー</translation>
    </message>
    <message>
        <source>Middle 1</source>
        <translation>ミドル1</translation>
    </message>
    <message>
        <source>Middle 2</source>
        <translation>ミドル2</translation>
    </message>
    <message>
        <source>Middle 3</source>
        <translation>ミドル3</translation>
    </message>
    <message>
        <source>Middle 4</source>
        <translation>ミドル4</translation>
    </message>
    <message>
        <source>High</source>
        <translation>ハイ</translation>
    </message>
    <message>
        <source>Listen</source>
        <translation>試聴</translation>
    </message>
    <message>
        <source>Listen to the band while held</source>
        <translation>押している間バンドを試聴</translation>
    </message>
    <message>
        <source>Hold this or the key L to hear only what the band changes.</source>
        <translation>ここか L キーを押している間、バンドによる変化だけが聞こえます。</translation>
    </message>
    <message>
        <source>Band to listen to</source>
        <translation>試聴するバンド</translation>
    </message>
    <message>
        <source>The band that Listen lets you hear. It follows the control or handle that you touched last.</source>
        <translation>「試聴」で聴くバンドです。最後に触れたコントロールやハンドルに従います。</translation>
    </message>
    <message>
        <source>Bypass</source>
        <translation>バイパス</translation>
    </message>
    <message>
        <source>You hear only what this band changes: %1.</source>
        <translation>このバンドによる変化だけが聞こえています: %1</translation>
    </message>
    <message>
        <source>Bypass %1 dB</source>
        <translation>バイパス %1 dB</translation>
    </message>
</context>
<context>
    <name>EditorPresets</name>
    <message>
        <source>Loaded %1.</source>
        <translation>%1 を読み込みました。</translation>
    </message>
    <message>
        <source>Saved %1.</source>
        <translation>%1 を保存しました。</translation>
    </message>
    <message>
        <source>Deleted %1.</source>
        <translation>%1 を削除しました。</translation>
    </message>
    <message>
        <source>%1 is called %2 now.</source>
        <translation>%1 の名前を %2 に変えました。</translation>
    </message>
</context>
<context>
    <name>PresetBar</name>
    <message>
        <source>Presets</source>
        <translation>プリセット</translation>
    </message>
    <message>
        <source>Preset</source>
        <translation>プリセット</translation>
    </message>
    <message>
        <source>Previous preset</source>
        <translation>前のプリセット</translation>
    </message>
    <message>
        <source>Next preset</source>
        <translation>次のプリセット</translation>
    </message>
    <message>
        <source>Save the preset</source>
        <translation>プリセットを保存</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Choose, rename and delete presets</source>
        <translation>プリセットの選択、名前の変更、削除</translation>
    </message>
    <message>
        <source>No preset</source>
        <translation>プリセットなし</translation>
    </message>
    <message>
        <source>Preset: %1, modified</source>
        <translation>プリセット: %1、変更あり</translation>
    </message>
    <message>
        <source>Preset: %1</source>
        <translation>プリセット: %1</translation>
    </message>
</context>
<context>
    <name>FileDialogs</name>
    <message>
        <source>The file %1 already exists. Replace it?</source>
        <translation>ファイル %1 は既にあります。置き換えますか?</translation>
    </message>
    <message>
        <source>Replace</source>
        <translation>置き換える</translation>
    </message>
</context>
<context>
    <name>FlatStep</name>
    <message>
        <source>Flat</source>
        <translation>フラット</translation>
    </message>
</context>
</TS>
