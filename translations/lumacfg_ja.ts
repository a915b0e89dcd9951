<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en">
  <context>
    <name>lumacfg</name>
    <message>
      <source>no rack</source>
      <translation>ラックなし</translation>
    </message>
    <message>
      <source>Position %1 of %2: %3</source>
      <translation>ポジション %1/%2: %3</translation>
    </message>
    <message>
      <source>, does not fit: %1</source>
      <translation>、適合しません: %1</translation>
    </message>
    <message>
      <source>Tray %1</source>
      <translation>トレイ %1</translation>
    </message>
    <message>
      <source>Tray picture</source>
      <translation>トレイ図</translation>
    </message>
    <message>
      <source>Tray picture, %1</source>
      <translation>トレイ図、%1</translation>
    </message>
    <message>
      <source>cannot read %1: %2</source>
      <translation>%1 を読み込めません: %2</translation>
    </message>
    <message>
      <source>cannot write %1: %2</source>
      <translation>%1 に書き込めません: %2</translation>
    </message>
    <message>
      <source>Could not get OPAL Application Name. - %1</source>
      <translation>OPALアプリケーション名を取得できませんでした。 - %1</translation>
    </message>
    <message>
      <source>Could not add device for %1</source>
      <translation>%1 のデバイスを追加できませんでした</translation>
    </message>
    <message>
      <source>The user name or password is wrong (%1). Tries left: %2.</source>
      <translation>ユーザー名またはパスワードが正しくありません（%1）。残りの試行回数: %2。</translation>
    </message>
    <message>
      <source>The loader refuses this entry: %1</source>
      <translation>ローダーはこのエントリを受け付けません: %1</translation>
    </message>
    <message>
      <source>On the custom trays:
%1</source>
      <translation>カスタムトレイ上:
%1</translation>
    </message>
    <message>
      <source>%1: fits</source>
      <translation>%1: 適合</translation>
    </message>
    <message>
      <source>%1: too wide: %2 across, RACK_X_DIST %3</source>
      <translation>%1: 幅が大きすぎます: 横 %2、RACK_X_DIST %3</translation>
    </message>
    <message>
      <source>%1: too long: %2 deep, RACK_Y_DIST %3</source>
      <translation>%1: 奥行きが大きすぎます: 奥行き %2、RACK_Y_DIST %3</translation>
    </message>
    <message>
      <source>Rack ID &amp;%1:</source>
      <translation>ラックID &amp;%1:</translation>
    </message>
    <message>
      <source>%1 (1 to %2 characters):</source>
      <translation>%1（1～%2文字）:</translation>
    </message>
    <message>
      <source>%1 (any number but %2):</source>
      <translation>%1（%2以外の任意の数値）:</translation>
    </message>
    <message>
      <source>%1 (a rack):</source>
      <translation>%1（ラック）:</translation>
    </message>
    <message>
      <source>No station of the data system was found (%1); choose the folder the data system is installed in, the one that holds LUMAEXE or where LUMAEXE may be made.</source>
      <translation>データシステムのステーションが見つかりませんでした（%1）。データシステムのインストール先フォルダ（LUMAEXEを含むフォルダ、またはLUMAEXEを作成できるフォルダ）を選択してください。</translation>
    </message>
    <message>
      <source>%1: No such file or directory (the registry store names the data system's folder; LUMACFG_PROGRAM_DIR is not set)</source>
      <translation>%1: ファイルまたはディレクトリがありません（データシステムのフォルダーはレジストリストアに記録されます。LUMACFG_PROGRAM_DIR は設定されていません）</translation>
    </message>
    <message>
      <source>%1: it names no data system folder (no "Path" under HKEY_LOCAL_MACHINE\%2)</source>
      <translation>%1: データシステムのフォルダーが記録されていません（HKEY_LOCAL_MACHINE\%2 に "Path" がありません）</translation>
    </message>
    <message>
      <source>%1: %2 (the program directory of the data system folder "%3" that %4 names)</source>
      <translation>%1: %2（%4 が示すデータシステムフォルダー "%3" のプログラムディレクトリ）</translation>
    </message>
    <message>
      <source>%1: its data system folder "%2" is not a full path (one that starts with "/")</source>
      <translation>%1: データシステムフォルダー "%2" は完全なパス（"/" で始まるパス）ではありません</translation>
    </message>
    <message>
      <source>%1: %2 is outside the accepted range %3.</source>
      <translation>%1: %2 は許容範囲 %3 の外です。</translation>
    </message>
    <message>
      <source>%1: %2 with %3 %4 makes %5 vials; the accepted range is %6.</source>
      <translation>%1: %2 と %3 %4 でバイアルが %5 本になります。許容範囲: %6。</translation>
    </message>
    <message>
      <source>%1: %2 is the name of a standard tray.</source>
      <translation>%1: %2 は標準トレイの名前です。</translation>
    </message>
    <message>
      <source>%1: %2 is the name of a standard rack.</source>
      <translation>%1: %2 は標準ラックの名前です。</translation>
    </message>
    <message>
      <source>%1: %2 is already the name of %3.</source>
      <translation>%1: %2 はすでに %3 の名前です。</translation>
    </message>
    <message>
      <source>%1: %2 is not a rack; accepted are %3 and the custom racks.</source>
      <translation>%1: %2 はラックではありません。許容されるのは %3 とカスタムラックです。</translation>
    </message>
    <message>
      <source>A tray has no key %1.</source>
      <translation>トレイにキー %1 はありません。</translation>
    </message>
    <message>
      <source>A rack has no key %1.</source>
      <translation>ラックにキー %1 はありません。</translation>
    </message>
    <message>
      <source>%1 is in use: %2 holds it.</source>
      <translation>%1 は使用中です: %2 が参照しています。</translation>
    </message>
    <message>
      <source>%1 may be in use by a tray the damaged list hides: %2.</source>
      <translation>%1 は、破損したリストに隠れたトレイで使用されている可能性があります: %2。</translation>
    </message>
    <message>
      <source>%1 does not load: %2.</source>
      <translation>%1 は読み込まれません: %2。</translation>
    </message>
    <message>
      <source>The tray list of custrack.ini is damaged: %1. Entries it names may be missing; New, Copy and Delete of trays are refused until it is repaired in the file.</source>
      <translation>custrack.ini のトレイリストが破損しています: %1。リストにあるエントリが欠けている可能性があります。ファイルで修復するまで、トレイの新規作成・コピー・削除はできません。</translation>
    </message>
    <message>
      <source>The rack list of custrack.ini is damaged: %1. Entries it names may be missing; New, Copy and Delete of racks are refused until it is repaired in the file.</source>
      <translation>custrack.ini のラックリストが破損しています: %1。リストにあるエントリが欠けている可能性があります。ファイルで修復するまで、ラックの新規作成・コピー・削除はできません。</translation>
    </message>
    <message>
      <source>No id is free: custom trays take the ids %1 to %2.</source>
      <translation>空いている ID がありません: カスタムトレイの ID は %1 から %2 です。</translation>
    </message>
    <message>
      <source>No id is free: custom racks take the ids %1 to %2.</source>
      <translation>空いている ID がありません: カスタムラックの ID は %1 から %2 です。</translation>
    </message>
    <message>
      <source>a number up to %1</source>
      <translation>%1 以下の数値</translation>
    </message>
    <message>
      <source>%1 (%2): ok</source>
      <translation>%1 (%2): 正常</translation>
    </message>
    <message>
      <source>%1 (%2): not loaded: %3 before it fails</source>
      <translation>%1 (%2): 読み込まれません: 前の %3 に誤りがあります</translation>
    </message>
    <message>
      <source>%1 (%2): %3</source>
      <translation>%1 (%2): %3</translation>
    </message>
    <message>
      <source>%1=%2 (accepted: %3)</source>
      <translation>%1=%2（許容: %3）</translation>
    </message>
    <message>
      <source>%1 missing (accepted: %2)</source>
      <translation>%1 がありません（許容: %2）</translation>
    </message>
    <message>
      <source>1 to %1 characters</source>
      <translation>1～%1 文字</translation>
    </message>
    <message>
      <source>any number but %1</source>
      <translation>%1 以外の任意の数値</translation>
    </message>
    <message>
      <source>VIAL_X_NUM times VIAL_Y_NUM at most %1</source>
      <translation>VIAL_X_NUM × VIAL_Y_NUM が %1 以下</translation>
    </message>
    <message>
      <source>a number</source>
      <translation>数値</translation>
    </message>
    <message>
      <source>IP address, part %1 of %2</source>
      <translation>IPアドレス、第%1オクテット (全%2)</translation>
    </message>
    <message>
      <source>Instrument type setup</source>
      <translation>装置タイプの設定</translation>
    </message>
    <message>
      <source>Autosampler setup</source>
      <translation>オートサンプラーの設定</translation>
    </message>
    <message>
      <source>Prohibited mass %1</source>
      <translation>禁止質量 %1</translation>
    </message>
    <message>
      <source>Waiting</source>
      <translation>待機中</translation>
    </message>
    <message>
      <source>OK</source>
      <translation>OK</translation>
    </message>
    <message>
      <source>Cancel</source>
      <translation>キャンセル</translation>
    </message>
    <message>
      <source>Help</source>
      <translation>ヘルプ</translation>
    </message>
    <message>
      <source>Error</source>
      <translation>エラー</translation>
    </message>
    <message>
      <source>Valid GPIB address is an integral number from 0 to 29.</source>
      <translation>有効なGPIBアドレスは0～29の整数です。</translation>
    </message>
    <message>
      <source>Would you like to select the QC Mode file opened in the QC Configuration?</source>
      <translation>QC設定で開いているQCモードファイルを選択しますか？</translation>
    </message>
    <message>
      <source>Prohibited mass is duplicated. This setting is invalid.</source>
      <translation>禁止質量が重複しています。この設定は無効です。</translation>
    </message>
    <message>
      <source>QC configuration changes must be implemented with caution as it affects the other QC related parameters. Continue?</source>
      <translation>QC設定の変更は他のQC関連パラメータに影響するため、慎重に行ってください。続行しますか？</translation>
    </message>
    <message>
      <source>OPAL Application should be selected.</source>
      <translation>OPALアプリケーションを選択してください。</translation>
    </message>
    <message>
      <source>Sample pump selection is reset.</source>
      <translation>サンプルポンプの選択はリセットされました。</translation>
    </message>
    <message>
      <source>Selected QC Mode file is invalid.</source>
      <translation>選択したQCモードファイルは無効です。</translation>
    </message>
    <message>
      <source>Could not execute QC Configuration. Check the current QC Mode file is valid.</source>
      <translation>QC設定を実行できませんでした。現在のQCモードファイルが有効か確認してください。</translation>
    </message>
    <message>
      <source>Could not get OPAL Standard Application.</source>
      <translation>OPAL標準アプリケーションを取得できませんでした。</translation>
    </message>
    <message>
      <source>Could not get OPAL Application Name. - </source>
      <translation>OPALアプリケーション名を取得できませんでした。 - </translation>
    </message>
    <message>
      <source>Could not find previously selected OPAL Application.</source>
      <translation>前回選択したOPALアプリケーションが見つかりませんでした。</translation>
    </message>
    <message>
      <source>Could not execute Toolbar Configuration.</source>
      <translation>ツールバー設定を実行できませんでした。</translation>
    </message>
    <message>
      <source>None</source>
      <translation>なし</translation>
    </message>
    <message>
      <source>Peristaltic Pump</source>
      <translation>ペリスタルティックポンプ</translation>
    </message>
    <message>
      <source>ICP-MS Configuration</source>
      <translation>ICP-MS設定</translation>
    </message>
    <message>
      <source>Offline Instrument</source>
      <translation>オフライン装置</translation>
    </message>
    <message>
      <source>ICP-MS Address:</source>
      <translation>ICP-MSアドレス:</translation>
    </message>
    <message>
      <source>Remote Start</source>
      <translation>リモートスタート</translation>
    </message>
    <message>
      <source>Don't Use</source>
      <translation>使用しない</translation>
    </message>
    <message>
      <source>Wait for Ready Signal</source>
      <translation>レディ信号を待つ</translation>
    </message>
    <message>
      <source>Sample Introduction</source>
      <translation>試料導入</translation>
    </message>
    <message>
      <source>Type:</source>
      <translation>タイプ:</translation>
    </message>
    <message>
      <source>Autosampler:</source>
      <translation>オートサンプラー:</translation>
    </message>
    <message>
      <source>Prohibited Masses</source>
      <translation>禁止質量</translation>
    </message>
    <message>
      <source>Reset to Default</source>
      <translation>デフォルトに戻す</translation>
    </message>
    <message>
      <source>EM Protection</source>
      <translation>EM保護</translation>
    </message>
    <message>
      <source>Auto setting of integ time in analog mode</source>
      <translation>アナログモードの積分時間を自動設定</translation>
    </message>
    <message>
      <source>Save</source>
      <translation>保存</translation>
    </message>
    <message>
      <source>ETV</source>
      <translation>ETV</translation>
    </message>
    <message>
      <source>Laser Ablation</source>
      <translation>レーザーアブレーション</translation>
    </message>
    <message>
      <source>Setup...</source>
      <translation>設定...</translation>
    </message>
    <message>
      <source>QC Mode</source>
      <translation>QCモード</translation>
    </message>
    <message>
      <source>Mode:</source>
      <translation>モード:</translation>
    </message>
    <message>
      <source>Browse...</source>
      <translation>参照...</translation>
    </message>
    <message>
      <source>Advanced QC...</source>
      <translation>詳細QC...</translation>
    </message>
    <message>
      <source>SC Cooling</source>
      <translation>SC冷却</translation>
    </message>
    <message>
      <source>Sample Pump</source>
      <translation>サンプルポンプ</translation>
    </message>
    <message>
      <source>Dead Time Calibration</source>
      <translation>デッドタイム校正</translation>
    </message>
    <message>
      <source>Use Dead Time Calibration</source>
      <translation>デッドタイム校正を使用</translation>
    </message>
    <message>
      <source>Configure Toolbar...</source>
      <translation>ツールバーの設定...</translation>
    </message>
    <message>
      <source>Miscellaneous...</source>
      <translation>その他...</translation>
    </message>
    <message>
      <source>GPIB</source>
      <translation>GPIB</translation>
    </message>
    <message>
      <source>LAN</source>
      <translation>LAN</translation>
    </message>
    <message>
      <source>IP Address:</source>
      <translation>IPアドレス:</translation>
    </message>
    <message>
      <source>OPAL</source>
      <translation>OPAL</translation>
    </message>
    <message>
      <source>DSS</source>
      <translation>DSS</translation>
    </message>
    <message>
      <source>OPAL Application:</source>
      <translation>OPALアプリケーション:</translation>
    </message>
    <message>
      <source>IP Address setting is invalid.</source>
      <translation>IPアドレスの設定が無効です。</translation>
    </message>
    <message>
      <source>Security</source>
      <translation>セキュリティ</translation>
    </message>
    <message>
      <source>LC/GC/Laser Ablation</source>
      <translation>LC/GC/レーザーアブレーション</translation>
    </message>
    <message>
      <source>Not Wait in 2nd or Later Replicate</source>
      <translation>2回目以降の繰り返しでは待たない</translation>
    </message>
    <message>
      <source>Control from LC/GC Data System</source>
      <translation>LC/GCデータシステムから制御</translation>
    </message>
    <message>
      <source>Instrument#</source>
      <translation>装置番号</translation>
    </message>
    <message>
      <source>Must specify tray type.</source>
      <translation>トレイタイプを指定してください。</translation>
    </message>
    <message>
      <source>Must specify Rack ID.</source>
      <translation>ラックIDを指定してください。</translation>
    </message>
    <message>
      <source>Invalid rack is specified for the current tray type.
Width of the rack might be wrong.</source>
      <translation>現在のトレイタイプに対して無効なラックが指定されています。
ラックの幅が正しくない可能性があります。</translation>
    </message>
    <message>
      <source>Discrete Sampling</source>
      <translation>ディスクリートサンプリング</translation>
    </message>
    <message>
      <source>Invalid rack is specified for the current tray type.
Length of the rack might be wrong.</source>
      <translation>現在のトレイタイプに対して無効なラックが指定されています。
ラックの奥行きが正しくない可能性があります。</translation>
    </message>
    <message>
      <source>Always output analysis reports to printer</source>
      <translation>分析レポートを常にプリンタに出力</translation>
    </message>
    <message>
      <source>VLT Integration</source>
      <translation>VLT連携</translation>
    </message>
    <message>
      <source>VLT Path:</source>
      <translation>VLTパス:</translation>
    </message>
    <message>
      <source>Waiting for the program started from this window to end...</source>
      <translation>このウィンドウから起動したプログラムの終了を待っています...</translation>
    </message>
    <message>
      <source>ASX500 Configuration</source>
      <translation>ASX500設定</translation>
    </message>
    <message>
      <source>ASX100 Configuration</source>
      <translation>ASX100設定</translation>
    </message>
    <message>
      <source>ASX500 for ETV Configuration</source>
      <translation>ETV用ASX500設定</translation>
    </message>
    <message>
      <source>KLR-8 Configuration</source>
      <translation>KLR-8設定</translation>
    </message>
    <message>
      <source>COM Port for ALS:</source>
      <translation>ALS用COMポート:</translation>
    </message>
    <message>
      <source>Racks</source>
      <translation>ラック</translation>
    </message>
    <message>
      <source>Rack ID 1:</source>
      <translation>ラックID 1:</translation>
    </message>
    <message>
      <source>Rack ID 2:</source>
      <translation>ラックID 2:</translation>
    </message>
    <message>
      <source>Rack ID 3:</source>
      <translation>ラックID 3:</translation>
    </message>
    <message>
      <source>Rack ID 4:</source>
      <translation>ラックID 4:</translation>
    </message>
    <message>
      <source>Rack ID 5:</source>
      <translation>ラックID 5:</translation>
    </message>
    <message>
      <source>Rack ID 6:</source>
      <translation>ラックID 6:</translation>
    </message>
    <message>
      <source>Rack ID 7:</source>
      <translation>ラックID 7:</translation>
    </message>
    <message>
      <source>Rack ID 8:</source>
      <translation>ラックID 8:</translation>
    </message>
    <message>
      <source>Miscellaneous</source>
      <translation>その他</translation>
    </message>
    <message>
      <source>Hardware Options</source>
      <translation>ハードウェアオプション</translation>
    </message>
    <message>
      <source>Plasma Ignition Mode</source>
      <translation>プラズマ点火モード</translation>
    </message>
    <message>
      <source>Sample Type:</source>
      <translation>試料タイプ:</translation>
    </message>
    <message>
      <source>Aqueous Solution</source>
      <translation>水溶液</translation>
    </message>
    <message>
      <source>Organic Solvent</source>
      <translation>有機溶媒</translation>
    </message>
    <message>
      <source>Post Analysis Peri Pump Rotation</source>
      <translation>分析後のペリポンプ回転</translation>
    </message>
    <message>
      <source>Enable Post Rotation</source>
      <translation>分析後回転を有効にする</translation>
    </message>
    <message>
      <source>Remote Shutdown</source>
      <translation>リモートシャットダウン</translation>
    </message>
    <message>
      <source>Standard</source>
      <translation>標準</translation>
    </message>
    <message>
      <source>Corvane LC</source>
      <translation>Corvane LC</translation>
    </message>
    <message>
      <source>Maintenance Log</source>
      <translation>メンテナンスログ</translation>
    </message>
    <message>
      <source>Record Log every Tuning Report Generation</source>
      <translation>チューニングレポート作成ごとにログを記録</translation>
    </message>
    <message>
      <source>Process during ALS Probe Move</source>
      <translation>ALSプローブ移動中の処理</translation>
    </message>
    <message>
      <source>Stop Peri Pump Rotation</source>
      <translation>ペリポンプの回転を停止</translation>
    </message>
    <message>
      <source>Change Carrier Gas Flow Rate</source>
      <translation>キャリアガス流量を変更</translation>
    </message>
    <message>
      <source>Flow Rate:</source>
      <translation>流量:</translation>
    </message>
    <message>
      <source>Stabilization Time:</source>
      <translation>安定化時間:</translation>
    </message>
    <message>
      <source>OPAL External Pump</source>
      <translation>OPAL外部ポンプ</translation>
    </message>
    <message>
      <source>Please connect OPAL External Pump to OPAL COM2 Port.</source>
      <translation>OPAL外部ポンプをOPALのCOM2ポートに接続してください。</translation>
    </message>
    <message>
      <source>ASX500 for ETV</source>
      <translation>ETV用ASX500</translation>
    </message>
    <message>
      <source>ASX500 for FI</source>
      <translation>FI用ASX500</translation>
    </message>
    <message>
      <source>Exit Plasmasuite.</source>
      <translation>Plasmasuiteを終了してください。</translation>
    </message>
    <message>
      <source>V-AS Configuration</source>
      <translation>V-AS設定</translation>
    </message>
    <message>
      <source>Sample Tray:</source>
      <translation>試料トレイ:</translation>
    </message>
    <message>
      <source>Sampling Depth(0.125mm Step)</source>
      <translation>サンプリング深さ（0.125mm単位）</translation>
    </message>
    <message>
      <source>Rinse Port:</source>
      <translation>リンスポート:</translation>
    </message>
    <message>
      <source>Tray/Single:</source>
      <translation>トレイ/シングル:</translation>
    </message>
    <message>
      <source>STD/Rinse:</source>
      <translation>STD/リンス:</translation>
    </message>
    <message>
      <source>Single Sample</source>
      <translation>単一試料</translation>
    </message>
    <message>
      <source>89 Samples</source>
      <translation>89試料</translation>
    </message>
    <message>
      <source>53 Samples</source>
      <translation>53試料</translation>
    </message>
    <message>
      <source>18 Samples</source>
      <translation>18試料</translation>
    </message>
    <message>
      <source>Enable ESC Mode</source>
      <translation>ESCモードを有効にする</translation>
    </message>
    <message>
      <source>Please connect ASX500 to OPAL COM1 Port.</source>
      <translation>ASX500をOPALのCOM1ポートに接続してください。</translation>
    </message>
    <message>
      <source>Please connect V-AS to OPAL COM1 Port.</source>
      <translation>V-ASをOPALのCOM1ポートに接続してください。</translation>
    </message>
    <message>
      <source>Please connect KLR-8 to OPAL COM1 Port.</source>
      <translation>KLR-8をOPALのCOM1ポートに接続してください。</translation>
    </message>
    <message>
      <source>Must specify the folder on VLT server.</source>
      <translation>VLTサーバー上のフォルダを指定してください。</translation>
    </message>
    <message>
      <source>Data system folder:</source>
      <translation>データシステムのフォルダ:</translation>
    </message>
    <message>
      <source>Choose the folder the data system is installed in.</source>
      <translation>データシステムのインストール先フォルダを選択してください。</translation>
    </message>
    <message>
      <source>COM &amp;Port for ALS:</source>
      <translation>ALS用COMポート(&amp;P):</translation>
    </message>
    <message>
      <source>&amp;Tray Type:</source>
      <translation>トレイタイプ(&amp;T):</translation>
    </message>
    <message>
      <source>&amp;Configure Tray...</source>
      <translation>トレイの設定(&amp;C)...</translation>
    </message>
    <message>
      <source>Rack ID </source>
      <translation>ラックID </translation>
    </message>
    <message>
      <source>C&amp;onfigure Rack...</source>
      <translation>ラックの設定(&amp;O)...</translation>
    </message>
    <message>
      <source>&amp;Help</source>
      <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
      <source>User name:</source>
      <translation>ユーザー名:</translation>
    </message>
    <message>
      <source>Password:</source>
      <translation>パスワード:</translation>
    </message>
    <message>
      <source>Checking the user name and password...</source>
      <translation>ユーザー名とパスワードを確認しています...</translation>
    </message>
    <message>
      <source>Custom Trays</source>
      <translation>カスタムトレイ</translation>
    </message>
    <message>
      <source>Custom Racks</source>
      <translation>カスタムラック</translation>
    </message>
    <message>
      <source>COM port for V-AS:</source>
      <translation>V-AS用COMポート:</translation>
    </message>
    <message>
      <source>sec</source>
      <translation>秒</translation>
    </message>
    <message>
      <source>&amp;Trays:</source>
      <translation>トレイ(&amp;T):</translation>
    </message>
    <message>
      <source>&amp;Racks:</source>
      <translation>ラック(&amp;R):</translation>
    </message>
    <message>
      <source>&amp;New</source>
      <translation>新規(&amp;N)</translation>
    </message>
    <message>
      <source>Co&amp;py</source>
      <translation>コピー(&amp;P)</translation>
    </message>
    <message>
      <source>&amp;Delete</source>
      <translation>削除(&amp;D)</translation>
    </message>
    <message>
      <source>(none)</source>
      <translation>（なし）</translation>
    </message>
    <message>
      <source>(missing)</source>
      <translation>（欠落）</translation>
    </message>
    <message>
      <source>The loader accepts this entry.</source>
      <translation>ローダーはこのエントリを受け付けます。</translation>
    </message>
    <message>
      <source>No custom tray is defined.</source>
      <translation>カスタムトレイは定義されていません。</translation>
    </message>
    <message>
      <source>Open File</source>
      <translation>ファイルを開く</translation>
    </message>
    <message>
      <source>Save File</source>
      <translation>ファイルを保存</translation>
    </message>
    <message>
      <source>&amp;User name:</source>
      <translation>ユーザー名(&amp;U):</translation>
    </message>
    <message>
      <source>&amp;Password:</source>
      <translation>パスワード(&amp;P):</translation>
    </message>
    <message>
      <source>&amp;Aqueous Solution</source>
      <translation>水溶液(&amp;A)</translation>
    </message>
    <message>
      <source>&amp;Autosampler:</source>
      <translation>オートサンプラー(&amp;A):</translation>
    </message>
    <message>
      <source>&amp;Browse...</source>
      <translation>参照(&amp;B)...</translation>
    </message>
    <message>
      <source>&amp;Configure Toolbar...</source>
      <translation>ツールバーの設定(&amp;C)...</translation>
    </message>
    <message>
      <source>&amp;Data system folder:</source>
      <translation>データシステムのフォルダ(&amp;D):</translation>
    </message>
    <message>
      <source>&amp;Enable ESC Mode</source>
      <translation>ESCモードを有効にする(&amp;E)</translation>
    </message>
    <message>
      <source>&amp;Enable Post Rotation</source>
      <translation>分析後回転を有効にする(&amp;E)</translation>
    </message>
    <message>
      <source>&amp;Flow Rate:</source>
      <translation>流量(&amp;F):</translation>
    </message>
    <message>
      <source>&amp;Instrument#</source>
      <translation>装置番号(&amp;I)</translation>
    </message>
    <message>
      <source>&amp;Miscellaneous...</source>
      <translation>その他(&amp;M)...</translation>
    </message>
    <message>
      <source>&amp;OPAL Application:</source>
      <translation>OPALアプリケーション(&amp;O):</translation>
    </message>
    <message>
      <source>&amp;Record Log every Tuning Report Generation</source>
      <translation>チューニングレポート作成ごとにログを記録(&amp;R)</translation>
    </message>
    <message>
      <source>&amp;Reset to Default</source>
      <translation>デフォルトに戻す(&amp;R)</translation>
    </message>
    <message>
      <source>&amp;Rinse Port:</source>
      <translation>リンスポート(&amp;R):</translation>
    </message>
    <message>
      <source>&amp;Save</source>
      <translation>保存(&amp;S)</translation>
    </message>
    <message>
      <source>&amp;Stop Peri Pump Rotation</source>
      <translation>ペリポンプの回転を停止(&amp;S)</translation>
    </message>
    <message>
      <source>&amp;Tray/Single:</source>
      <translation>トレイ/シングル(&amp;T):</translation>
    </message>
    <message>
      <source>&amp;Use Dead Time Calibration</source>
      <translation>デッドタイム校正を使用(&amp;U)</translation>
    </message>
    <message>
      <source>&amp;VLT Integration</source>
      <translation>VLT連携(&amp;V)</translation>
    </message>
    <message>
      <source>&amp;Wait for Ready Signal</source>
      <translation>レディ信号を待つ(&amp;W)</translation>
    </message>
    <message>
      <source>Advanced &amp;QC...</source>
      <translation>詳細QC(&amp;Q)...</translation>
    </message>
    <message>
      <source>Always ou&amp;tput analysis reports to printer</source>
      <translation>分析レポートを常にプリンタに出力(&amp;T)</translation>
    </message>
    <message>
      <source>Auto setting of integ time in ana&amp;log mode</source>
      <translation>アナログモードの積分時間を自動設定(&amp;L)</translation>
    </message>
    <message>
      <source>C&amp;hange Carrier Gas Flow Rate</source>
      <translation>キャリアガス流量を変更(&amp;H)</translation>
    </message>
    <message>
      <source>COM &amp;port for V-AS:</source>
      <translation>V-AS用COMポート(&amp;P):</translation>
    </message>
    <message>
      <source>Control from LC/&amp;GC Data System</source>
      <translation>LC/GCデータシステムから制御(&amp;G)</translation>
    </message>
    <message>
      <source>Corvane &amp;LC</source>
      <translation>Corvane LC(&amp;L)</translation>
    </message>
    <message>
      <source>Do&amp;n't Use</source>
      <translation>使用しない(&amp;N)</translation>
    </message>
    <message>
      <source>ICP-MS A&amp;ddress:</source>
      <translation>ICP-MSアドレス(&amp;D):</translation>
    </message>
    <message>
      <source>IP A&amp;ddress:</source>
      <translation>IPアドレス(&amp;D):</translation>
    </message>
    <message>
      <source>Not Wait in &amp;2nd or Later Replicate</source>
      <translation>2回目以降の繰り返しでは待たない(&amp;2)</translation>
    </message>
    <message>
      <source>O&amp;ffline Instrument</source>
      <translation>オフライン装置(&amp;F)</translation>
    </message>
    <message>
      <source>OPAL E&amp;xternal Pump</source>
      <translation>OPAL外部ポンプ(&amp;X)</translation>
    </message>
    <message>
      <source>Or&amp;ganic Solvent</source>
      <translation>有機溶媒(&amp;G)</translation>
    </message>
    <message>
      <source>Pro&amp;hibited Masses</source>
      <translation>禁止質量(&amp;H)</translation>
    </message>
    <message>
      <source>S&amp;C Cooling</source>
      <translation>SC冷却(&amp;C)</translation>
    </message>
    <message>
      <source>S&amp;ample Tray:</source>
      <translation>試料トレイ(&amp;A):</translation>
    </message>
    <message>
      <source>S&amp;ecurity</source>
      <translation>セキュリティ(&amp;E)</translation>
    </message>
    <message>
      <source>Setu&amp;p...</source>
      <translation>設定(&amp;P)...</translation>
    </message>
    <message>
      <source>ST&amp;D/Rinse:</source>
      <translation>STD/リンス(&amp;D):</translation>
    </message>
    <message>
      <source>Sam&amp;ple Pump</source>
      <translation>サンプルポンプ(&amp;P)</translation>
    </message>
    <message>
      <source>Set&amp;up...</source>
      <translation>設定(&amp;U)...</translation>
    </message>
    <message>
      <source>Sta&amp;bilization Time:</source>
      <translation>安定化時間(&amp;B):</translation>
    </message>
    <message>
      <source>Stan&amp;dard</source>
      <translation>標準(&amp;D)</translation>
    </message>
    <message>
      <source>T&amp;ype:</source>
      <translation>タイプ(&amp;Y):</translation>
    </message>
  </context>
</TS>
