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
        <source>More</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>Settings %1</source>
        <translation>設定 %1</translation>
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
        <source>Every parameter is at its default.</source>
        <translation>すべてのパラメーターを初期値に戻しました。</translation>
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
        <source>Delete the preset %1?</source>
        <translation>プリセット %1 を削除しますか?</translation>
    </message>
    <message>
        <source>Deleted %1.</source>
        <translation>%1 を削除しました。</translation>
    </message>
    <message>
        <source>Name of the preset</source>
        <translation>プリセットの名前</translation>
    </message>
    <message>
        <source>No audio</source>
        <translation>音声なし</translation>
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
        <source>S&amp;witch between A and B</source>
        <translation>A と B の切り替え(&amp;W)</translation>
    </message>
    <message>
        <source>Save as Preset</source>
        <translation>プリセットとして保存</translation>
    </message>
    <message>
        <source>There is a preset %1. Replace it?</source>
        <translation>プリセット %1 は既にあります。置き換えますか?</translation>
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
        <source>Reset</source>
        <translation>リセット</translation>
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
        <translation>クリア/歪み</translation>
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
        <translation>モノ/ステレオ</translation>
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
        <translation>%1 から %2</translation>
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
        <source>the value of &quot;%1&quot; is no text</source>
        <translation>「%1」の値がテキストではありません</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no value of &quot;%2&quot;</source>
        <translation>「%1」は「%2」の値ではありません</translation>
    </message>
    <message>
        <source>the clipboard holds no settings of an equalizer</source>
        <translation>クリップボードにイコライザーの設定がありません</translation>
    </message>
</context>
<context>
    <name>MixerModel</name>
    <message>
        <source>Channel %1</source>
        <translation>チャンネル %1</translation>
    </message>
    <message>
        <source>Nothing is pasted: %1.</source>
        <translation>貼り付けませんでした: %1。</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>貼り付け</translation>
    </message>
    <message>
        <source>Rename</source>
        <translation>名前の変更</translation>
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
        <translation>200~500 Hz をすっきりさせる</translation>
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
    <name>HistoryMenu</name>
    <message>
        <source>&amp;Redo</source>
        <translation>やり直す(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Redo %1</source>
        <translation>やり直す(&amp;R): %1</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Undo %1</source>
        <translation>元に戻す(&amp;U): %1</translation>
    </message>
</context>
<context>
    <name>MixerStrip</name>
    <message>
        <source>%1 mono</source>
        <translation>%1 をモノ</translation>
    </message>
    <message>
        <source>%1 stereo</source>
        <translation>%1 をステレオ</translation>
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
        <translation>%1 のモノ/ステレオ</translation>
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
</context>
<context>
    <name>PresetFolder</name>
    <message>
        <source>A preset needs a name.</source>
        <translation>プリセットには名前が必要です。</translation>
    </message>
    <message>
        <source>A preset's name has at most %1 letters.</source>
        <translation>プリセットの名前は %1 文字までです。</translation>
    </message>
    <message>
        <source>A preset's name does not begin with a full stop and holds none of these: %1</source>
        <translation>プリセットの名前はピリオドで始められず、次の文字を含められません: %1</translation>
    </message>
    <message>
        <source>The presets' folder %1 cannot be made.</source>
        <translation>プリセットのフォルダー %1 を作成できません。</translation>
    </message>
    <message>
        <source>The preset %1 cannot be deleted: %2.</source>
        <translation>プリセット %1 を削除できません: %2。</translation>
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
        <translation>描かれた特性</translation>
    </message>
    <message>
        <source>Measured in the sound</source>
        <translation>音から測定した特性</translation>
    </message>
</context>
<context>
    <name>SessionFile</name>
    <message>
        <source>Another program has the session %1 open. What is changed here will not be saved.</source>
        <translation>セッション %1 は別のプログラムで開かれています。ここでの変更は保存しません。</translation>
    </message>
    <message>
        <source>The session %1 cannot be read: %2.</source>
        <translation>セッション %1 を読み込めません: %2。</translation>
    </message>
    <message>
        <source>The session %1 cannot be read: %2. It is left alone, and nothing will be saved.</source>
        <translation>セッション %1 を読み込めません: %2。ファイルはそのまま残し、保存は行いません。</translation>
    </message>
    <message>
        <source>The session %1 cannot be saved: %2.</source>
        <translation>セッション %1 を保存できません: %2。</translation>
    </message>
    <message>
        <source>The session %1 is damaged and not used: %2. The file is kept as %3.</source>
        <translation>セッション %1 は壊れているため使用しません: %2。ファイルは %3 として残します。</translation>
    </message>
    <message>
        <source>The session %1 is damaged and not used: %2. The file cannot be renamed, so nothing will be saved.</source>
        <translation>セッション %1 は壊れているため使用しません: %2。ファイル名を変更できないため、保存は行いません。</translation>
    </message>
</context>
<context>
    <name>SettingsFile</name>
    <message>
        <source>The editors' settings in %1 cannot be read: %2.</source>
        <translation>エディターの設定 %1 を読み込めません: %2。</translation>
    </message>
    <message>
        <source>The editors' settings in %1 cannot be written: %2.</source>
        <translation>エディターの設定 %1 を保存できません: %2。</translation>
    </message>
    <message>
        <source>The editors' settings in %1 are damaged and ignored: %2. The file is kept as %3.</source>
        <translation>エディターの設定 %1 は壊れているため使用しません: %2。ファイルは %3 として残します。</translation>
    </message>
    <message>
        <source>The editors' settings in %1 are damaged and ignored: %2. The file cannot be renamed, so nothing is kept.</source>
        <translation>エディターの設定 %1 は壊れているため使用しません: %2。ファイル名を変更できないため、保存は行いません。</translation>
    </message>
</context>
<context>
    <name>TransportBar</name>
    <message>
        <source>Audio error</source>
        <translation>音声エラー</translation>
    </message>
    <message>
        <source>No audio</source>
        <translation>音声なし</translation>
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
        <translation>音声ファイルを開く</translation>
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
        <source>Sound files (*.wav *.flac *.ogg *.aif *.aiff *.mp3);;All files (*)</source>
        <translation>音声ファイル (*.wav *.flac *.ogg *.aif *.aiff *.mp3);;すべてのファイル (*)</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>停止</translation>
    </message>
</context>
</TS>
