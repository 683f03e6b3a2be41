<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-License-Identifier: GPL-3.0-or-later -->
<TS version="2.1" language="ja" sourcelanguage="en">
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
        <source>&amp;Reset to Defaults</source>
        <translation>初期値に戻す(&amp;R)</translation>
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
        <source>&amp;Mixer</source>
        <translation>ミキサー(&amp;M)</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>エディター</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>Zoom</source>
        <translation>表示倍率</translation>
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
        <translation>円運動</translation>
    </message>
    <message>
        <source>Relative circular</source>
        <translation>相対円運動</translation>
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
        <translation>ダイヤル</translation>
    </message>
    <message>
        <source>Sliders</source>
        <translation>スライダー</translation>
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
        <source>Every parameter is at its default.</source>
        <translation>すべてのパラメーターを初期値に戻しました。</translation>
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
        <source>A double click opens the editor</source>
        <translation>ダブルクリックでエディターを開きます</translation>
    </message>
    <message>
        <source>Channels %1 + %2</source>
        <translation>チャンネル %1 + %2</translation>
    </message>
    <message>
        <source>Channel %1</source>
        <translation>チャンネル %1</translation>
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
        <translation>クリア／歪み</translation>
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
        <source>&quot;%1&quot; is no value of %2: type %3.</source>
        <translation>「%1」は%2の値ではありません。入力できる値: %3</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 ～ %2</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation>%1 または %2</translation>
    </message>
</context>
<context>
    <name>ZoltaEditor</name>
    <message>
        <source>CLEAN</source>
        <translation>クリア</translation>
    </message>
    <message>
        <source>DRIVE</source>
        <translation>歪み</translation>
    </message>
    <message>
        <source>F</source>
        <translation>F</translation>
    </message>
    <message>
        <source>FLAT</source>
        <translation>平坦</translation>
    </message>
    <message>
        <source>G</source>
        <translation>G</translation>
    </message>
    <message>
        <source>IN</source>
        <translation>入力</translation>
    </message>
    <message>
        <source>INPUT</source>
        <translation>入力</translation>
    </message>
    <message>
        <source>OUT</source>
        <translation>出力</translation>
    </message>
    <message>
        <source>OUTPUT</source>
        <translation>出力</translation>
    </message>
    <message>
        <source>PEAK</source>
        <translation>ピーク</translation>
    </message>
    <message>
        <source>Q</source>
        <translation>Q</translation>
    </message>
    <message>
        <source>ZOOM</source>
        <translation>ズーム</translation>
    </message>
</context>
</TS>
