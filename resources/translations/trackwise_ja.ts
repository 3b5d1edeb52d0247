<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP">
<context>
    <name>AboutButtons</name>
    <message>
        <source>More Apps</source>
        <translation>その他のアプリ</translation>
    </message>
    <message>
        <source>Rate on App Store</source>
        <translation>App Storeで評価</translation>
    </message>
    <message>
        <source>Privacy Policy</source>
        <translation>プライバシーポリシー</translation>
    </message>
</context>
<context>
    <name>AboutIcon</name>
    <message>
        <source>App icon</source>
        <translation>アプリのアイコン</translation>
    </message>
</context>
<context>
    <name>AboutView</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
</context>
<context>
    <name>ArtworkTile</name>
    <message>
        <source>Album artwork</source>
        <translation>アルバムアートワーク</translation>
    </message>
    <message>
        <source>Album artwork, empty</source>
        <translation>アルバムアートワーク、なし</translation>
    </message>
</context>
<context>
    <name>ArtworkView</name>
    <message>
        <source>Explicit</source>
        <translation>露骨な内容</translation>
    </message>
</context>
<context>
    <name>ContextMenu</name>
    <message>
        <source>Menu</source>
        <translation>メニュー</translation>
    </message>
</context>
<context>
    <name>CopyMenu</name>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
</context>
<context>
    <name>DetailAlerts</name>
    <message>
        <source>Open Music</source>
        <translation>ミュージックを開く</translation>
    </message>
    <message>
        <source>Open Settings</source>
        <translation>設定を開く</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Song Not Added to Library</source>
        <translation>曲がライブラリにありません</translation>
    </message>
    <message>
        <source>This song needs to be added to your Music Library to access its information. You can do this in the Music app.</source>
        <translation>この曲の情報を見るには、ミュージックライブラリに追加する必要があります。追加はミュージックアプリで行えます。</translation>
    </message>
    <message>
        <source>No Music Access</source>
        <translation>ミュージックにアクセスできません</translation>
    </message>
    <message>
        <source>Trackwise does not currently have access to your music library. Please turn on Media &amp; Apple Music access in the Settings app.</source>
        <translation>現在、Trackwiseはミュージックライブラリにアクセスできません。設定アプリで「メディアとApple Music」へのアクセスをオンにしてください。</translation>
    </message>
    <message>
        <source>Trackwise does not have access to your music library due to restrictions enabled on your device.</source>
        <translation>このデバイスで有効になっている制限のため、Trackwiseはミュージックライブラリにアクセスできません。</translation>
    </message>
    <message>
        <source>No Song Playing</source>
        <translation>再生中の曲はありません</translation>
    </message>
    <message>
        <source>Would you like to play something?</source>
        <translation>何か再生しますか?</translation>
    </message>
    <message>
        <source>No Microphone Access</source>
        <translation>マイクにアクセスできません</translation>
    </message>
    <message>
        <source>Trackwise does not currently have access to your microphone. Please turn on Microphone access in the Settings app.</source>
        <translation>現在、Trackwiseはマイクにアクセスできません。設定アプリで「マイク」へのアクセスをオンにしてください。</translation>
    </message>
</context>
<context>
    <name>DetailView</name>
    <message>
        <source>Select Song</source>
        <translation>曲を選択</translation>
    </message>
    <message>
        <source>More</source>
        <translation>その他</translation>
    </message>
    <message>
        <source>No Song Selected</source>
        <translation>曲が選択されていません</translation>
    </message>
</context>
<context>
    <name>EditMenu</name>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
</context>
<context>
    <name>EmptyStateView</name>
    <message>
        <source>Choose Folder…</source>
        <translation>フォルダを選択…</translation>
    </message>
</context>
<context>
    <name>FolderList</name>
    <message>
        <source>Remove %1</source>
        <translation>%1を取り除く</translation>
    </message>
</context>
<context>
    <name>HelpView</name>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完了</translation>
    </message>
    <message>
        <source>App</source>
        <translation>アプリ</translation>
    </message>
    <message>
        <source>Select any song from your music library in the Trackwise app to view its information. This works with songs you&apos;ve added to your library via Apple Music as well as purchased, matched, uploaded, and synced songs. Note that songs on Apple Music that haven&apos;t been added to your library cannot be accessed.</source>
        <translation>Trackwiseアプリでミュージックライブラリから曲を選ぶと、その情報が表示されます。Apple Musicからライブラリに追加した曲のほか、購入した曲、マッチした曲、アップロードした曲、同期した曲でもご利用いただけます。Apple Musicの曲でライブラリに追加されていないものにはアクセスできませんのでご注意ください。</translation>
    </message>
    <message>
        <source>Share Sheet Action</source>
        <translation>共有シートのアクション</translation>
    </message>
    <message>
        <source>Share a song in the Music app to view its information right from the share sheet. I recommend adding Get Trackwise to your favorites via Edit Actions so it&apos;s easily accessible in the top section. Note that the Music app does not have a share button for songs not available on Apple Music.</source>
        <translation>ミュージックアプリで曲を共有すると、共有シートからすぐに情報を表示できます。「アクションを編集」で「Get Trackwise」をよく使う項目に追加しておくと、上部からすぐに使えるのでおすすめです。Apple Musicで配信されていない曲の場合、ミュージックアプリに共有ボタンは表示されません。</translation>
    </message>
    <message>
        <source>The action extension will try to look up the song in your library. This may require an internet connection and it&apos;s possible it may not be able to find the right song, for example, if you&apos;ve renamed that song. If an error occurs, you can use the app to view its information even without an internet connection.</source>
        <translation>アクション機能拡張は、ライブラリ内でその曲を探します。インターネット接続が必要になることがあります。また、曲名を変更した場合など、正しい曲が見つからないことがあります。エラーが起きた場合でも、アプリを使えばインターネット接続がなくても情報を表示できます。</translation>
    </message>
    <message>
        <source>Contact Support</source>
        <translation>サポートに連絡</translation>
    </message>
    <message>
        <source>Reach out if you have any questions or feedback!</source>
        <translation>ご質問やご意見がありましたら、お気軽にお寄せください!</translation>
    </message>
    <message>
        <source>Email the Developer</source>
        <translation>開発者にメールを送る</translation>
    </message>
</context>
<context>
    <name>InformationHeader</name>
    <message>
        <source>Information</source>
        <translation>情報</translation>
    </message>
    <message>
        <source>Show Less</source>
        <translation>表示を減らす</translation>
    </message>
    <message>
        <source>Show More</source>
        <translation>さらに表示</translation>
    </message>
</context>
<context>
    <name>LibraryAccessView</name>
    <message>
        <source>“Trackwise” would like to access your music library</source>
        <translation>“Trackwise”がミュージックライブラリへのアクセスを求めています</translation>
    </message>
    <message>
        <source>It shows what your library knows about a song. It reads the music in these folders and never changes it.</source>
        <translation>ライブラリにある曲の情報を表示します。これらのフォルダのミュージックを読み込むだけで、変更することはありません。</translation>
    </message>
    <message>
        <source>Choose Another Folder…</source>
        <translation>別のフォルダを選択…</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Don&apos;t Allow</source>
        <translation>許可しない</translation>
    </message>
</context>
<context>
    <name>LyricsView</name>
    <message>
        <source>Lyrics</source>
        <translation>歌詞</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Trackwise</source>
        <translation>Trackwise</translation>
    </message>
</context>
<context>
    <name>MenuBarView</name>
    <message>
        <source>Menu Bar</source>
        <translation>メニューバー</translation>
    </message>
</context>
<context>
    <name>MicrophoneSection</name>
    <message>
        <source>Microphone</source>
        <translation>マイク</translation>
    </message>
    <message>
        <source>Microphone access</source>
        <translation>マイクへのアクセス</translation>
    </message>
    <message>
        <source>For recognizing the music around you. What is heard stays on this device.</source>
        <translation>周囲で流れている曲を認識するために使います。聞き取った音はこのデバイスから出ません。</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>入力</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>レベル</translation>
    </message>
</context>
<context>
    <name>MusicAppLink</name>
    <message>
        <source>Open Music app</source>
        <translation>ミュージックアプリを開く</translation>
    </message>
</context>
<context>
    <name>PickerPages</name>
    <message>
        <source>Search Results</source>
        <translation>検索結果</translation>
    </message>
</context>
<context>
    <name>PickerTabs</name>
    <message>
        <source>Lists</source>
        <translation>リスト</translation>
    </message>
    <message>
        <source>Songs</source>
        <translation>曲</translation>
    </message>
    <message>
        <source>Artists</source>
        <translation>アーティスト</translation>
    </message>
    <message>
        <source>Albums</source>
        <translation>アルバム</translation>
    </message>
    <message>
        <source>Recently Added</source>
        <translation>最近追加した項目</translation>
    </message>
</context>
<context>
    <name>PickerTitleBar</name>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
    <message>
        <source>Scan Again</source>
        <translation>再スキャン</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
</context>
<context>
    <name>PlaybackRow</name>
    <message>
        <source>NOW PLAYING</source>
        <translation>再生中</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>一時停止</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>再生</translation>
    </message>
</context>
<context>
    <name>PushedView</name>
    <message>
        <source>Back</source>
        <translation>戻る</translation>
    </message>
</context>
<context>
    <name>QGuiApplication</name>
    <message>
        <source>QT_LAYOUT_DIRECTION</source>
        <translation>LTR</translation>
    </message>
</context>
<context>
    <name>Recognition</name>
    <message>
        <source>Listening</source>
        <translation>聞き取り中</translation>
    </message>
    <message>
        <source>Microphone already in use</source>
        <translation>マイクはすでに使用中です</translation>
    </message>
    <message>
        <source>Song Identified</source>
        <translation>曲を認識しました</translation>
    </message>
    <message>
        <source>Song identified</source>
        <translation>曲を認識しました</translation>
    </message>
    <message>
        <source>Song Not Found</source>
        <translation>曲が見つかりません</translation>
    </message>
    <message>
        <source>Couldn&apos;t find in your library</source>
        <translation>ライブラリに見つかりませんでした</translation>
    </message>
    <message>
        <source>Song not found, couldn&apos;t find in your library</source>
        <translation>曲が見つかりません。ライブラリに見つかりませんでした</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>Error occurred, %1</source>
        <translation>エラーが起きました。%1</translation>
    </message>
    <message>
        <source>Music Recognition</source>
        <translation>ミュージック認識</translation>
    </message>
    <message>
        <source>Listening…</source>
        <translation>聞き取り中…</translation>
    </message>
    <message>
        <source>No Result</source>
        <translation>結果なし</translation>
    </message>
    <message>
        <source>Couldn&apos;t identify song</source>
        <translation>曲を認識できませんでした</translation>
    </message>
    <message>
        <source>No result, couldn&apos;t identify song</source>
        <translation>結果なし。曲を認識できませんでした</translation>
    </message>
    <message>
        <source>Song identified, %1 by %2</source>
        <translation>曲を認識しました。%2の%1</translation>
    </message>
    <message>
        <source>Not Found in Your Library</source>
        <translation>ライブラリにありません</translation>
    </message>
    <message>
        <source>No sound is coming in</source>
        <translation>音が入力されていません</translation>
    </message>
</context>
<context>
    <name>RecognitionSection</name>
    <message>
        <source>Music Recognition</source>
        <translation>ミュージック認識</translation>
    </message>
    <message>
        <source>Get to know songs by ear</source>
        <translation>曲を聴いて覚える</translation>
    </message>
    <message>
        <source>Begin Anew</source>
        <translation>最初からやり直す</translation>
    </message>
    <message>
        <source>Forget All Songs</source>
        <translation>すべての曲を忘れる</translation>
    </message>
</context>
<context>
    <name>ReviewCard</name>
    <message>
        <source>Do you like Trackwise?</source>
        <translation>Trackwiseを気に入っていただけましたか?</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>今はしない</translation>
    </message>
    <message>
        <source>Write a Review</source>
        <translation>レビューを書く</translation>
    </message>
</context>
<context>
    <name>SearchField</name>
    <message>
        <source>Search Songs</source>
        <translation>曲を検索</translation>
    </message>
    <message>
        <source>Clear Search</source>
        <translation>検索を消去</translation>
    </message>
</context>
<context>
    <name>SectionIndex</name>
    <message>
        <source>Letters</source>
        <translation>文字</translation>
    </message>
</context>
<context>
    <name>SettingsView</name>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>自動</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>ライト</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>ダーク</translation>
    </message>
    <message>
        <source>Reduced</source>
        <translation>減らす</translation>
    </message>
    <message>
        <source>Full</source>
        <translation>減らさない</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>完了</translation>
    </message>
    <message>
        <source>Music</source>
        <translation>ミュージック</translation>
    </message>
    <message>
        <source>Music access</source>
        <translation>ミュージックへのアクセス</translation>
    </message>
    <message>
        <source>The system does not let Trackwise read your music folders.</source>
        <translation>システムにより、Trackwiseはミュージックフォルダを読み込めません。</translation>
    </message>
    <message>
        <source>Trackwise reads your music and never changes it.</source>
        <translation>Trackwiseはミュージックを読み込むだけで、変更することはありません。</translation>
    </message>
    <message>
        <source>Add Music Folder…</source>
        <translation>ミュージックフォルダを追加…</translation>
    </message>
    <message>
        <source>Scan Again</source>
        <translation>再スキャン</translation>
    </message>
    <message>
        <source>Appearance</source>
        <translation>外観</translation>
    </message>
    <message>
        <source>Theme</source>
        <translation>テーマ</translation>
    </message>
    <message>
        <source>Motion</source>
        <translation>動き</translation>
    </message>
    <message>
        <source>Reduced motion fades where it would slide.</source>
        <translation>動きを減らすと、スライドの代わりにフェードします。</translation>
    </message>
    <message>
        <source>Text size of the desktop</source>
        <translation>デスクトップの文字サイズ</translation>
    </message>
    <message>
        <source>Players to Ignore</source>
        <translation>無視するプレーヤー</translation>
    </message>
    <message>
        <source>Other players are listed here while they run.</source>
        <translation>ほかのプレーヤーは、実行中にここに表示されます。</translation>
    </message>
    <message>
        <source>Ignore %1</source>
        <translation>%1を無視</translation>
    </message>
    <message>
        <source>Show menu bar</source>
        <translation>メニューバーを表示</translation>
    </message>
    <message>
        <source>Otherwise Alt or F10 shows it.</source>
        <translation>オフのときは Alt または F10 で表示します。</translation>
    </message>
</context>
<context>
    <name>SongPicker</name>
    <message>
        <source>No Results</source>
        <translation>結果なし</translation>
    </message>
    <message>
        <source>No song matches “%1”.</source>
        <translation>“%1”に一致する曲はありません。</translation>
    </message>
    <message>
        <source>Looking for Music</source>
        <translation>ミュージックを探しています</translation>
    </message>
    <message>
        <source>Songs appear here as soon as they have been read.</source>
        <translation>曲は読み込まれるとここに表示されます。</translation>
    </message>
    <message>
        <source>No Music Found</source>
        <translation>ミュージックが見つかりません</translation>
    </message>
    <message>
        <source>Add songs to your music folder, or choose the folder in which your music is.</source>
        <translation>ミュージックフォルダに曲を追加するか、ミュージックがあるフォルダを選択してください。</translation>
    </message>
    <message>
        <source>Unknown Artist</source>
        <translation>不明なアーティスト</translation>
    </message>
    <message>
        <source>Unknown Title</source>
        <translation>不明なタイトル</translation>
    </message>
    <message numerus="yes">
        <source>%Ln song</source>
        <translation>
            <numerusform>%Ln曲</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%Ln songs</source>
        <translation>
            <numerusform>%Ln曲</numerusform>
        </translation>
    </message>
    <message>
        <source>Unknown Album</source>
        <translation>不明なアルバム</translation>
    </message>
</context>
<context>
    <name>SongPickerView</name>
    <message>
        <source>Stop Reading Music</source>
        <translation>ミュージックの読み込みを停止</translation>
    </message>
</context>
<context>
    <name>TextSizeSlider</name>
    <message>
        <source>Text size</source>
        <translation>文字サイズ</translation>
    </message>
</context>
<context>
    <name>trackwise::AboutView</name>
    <message>
        <source>Version %1</source>
        <translation>バージョン %1</translation>
    </message>
</context>
<context>
    <name>trackwise::AddressOpening</name>
    <message>
        <source>Song Not Found</source>
        <translation>曲が見つかりません</translation>
    </message>
    <message>
        <source>There is no song “%1” in your music library. Music folders are chosen in the settings.</source>
        <translation>ミュージックライブラリに曲“%1”はありません。ミュージックフォルダは設定で選択できます。</translation>
    </message>
    <message>
        <source>There is no file “%1”.</source>
        <translation>ファイル“%1”はありません。</translation>
    </message>
</context>
<context>
    <name>trackwise::CopyableRow</name>
    <message>
        <source>Copy</source>
        <translation>コピー</translation>
    </message>
</context>
<context>
    <name>trackwise::DetailViewController</name>
    <message>
        <source>Lyrics</source>
        <translation>歌詞</translation>
    </message>
</context>
<context>
    <name>trackwise::IndexStatus</name>
    <message>
        <source>%1 of %2 songs can be recognized (%3)</source>
        <translation>%2曲中%1曲を認識できます（%3）</translation>
    </message>
    <message>
        <source>Listening to music: %1 left</source>
        <translation>曲を聴いています：残り%1</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>一時停止中</translation>
    </message>
    <message>
        <source>Paused: saving power</source>
        <translation>一時停止中：省電力</translation>
    </message>
    <message>
        <source>Not possible at the moment</source>
        <translation>現在は利用できません</translation>
    </message>
    <message>
        <source>What was not recognized just now may be among the songs that are left.</source>
        <translation>今認識できなかった曲は、残りの曲の中にあるかもしれません。</translation>
    </message>
</context>
<context>
    <name>trackwise::InputSettings</name>
    <message>
        <source>Default input</source>
        <translation>デフォルトの入力</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>マイクが見つかりません</translation>
    </message>
    <message>
        <source>Not connected; the default input is used</source>
        <translation>接続されていません。デフォルトの入力を使用します</translation>
    </message>
    <message>
        <source>This computer&apos;s sound</source>
        <translation>このコンピュータの音</translation>
    </message>
    <message>
        <source>Whatever it plays, also for headphones</source>
        <translation>ヘッドフォン用も含め、再生しているすべての音</translation>
    </message>
    <message>
        <source>Not available now</source>
        <translation>現在利用できません</translation>
    </message>
    <message>
        <source>Paused; choose an input to go on</source>
        <translation>一時停止中。続けるには入力を選択してください</translation>
    </message>
    <message>
        <source>No sound is coming in</source>
        <translation>音が入力されていません</translation>
    </message>
</context>
<context>
    <name>trackwise::KeyCommands</name>
    <message>
        <source>New Window</source>
        <translation>新規ウインドウ</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Select Song</source>
        <translation>曲を選択</translation>
    </message>
    <message>
        <source>Select Song from Now Playing</source>
        <translation>再生中の曲を選択</translation>
    </message>
    <message>
        <source>Clear Selected Song</source>
        <translation>曲の選択を解除</translation>
    </message>
    <message>
        <source>Paste Link</source>
        <translation>リンクをペースト</translation>
    </message>
    <message>
        <source>Close Window</source>
        <translation>ウインドウを閉じる</translation>
    </message>
    <message>
        <source>File</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>Select Song from Music Recognition</source>
        <translation>ミュージック認識で曲を選択</translation>
    </message>
    <message>
        <source>About</source>
        <translation>このアプリについて</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
</context>
<context>
    <name>trackwise::Launch</name>
    <message>
        <source>Show Demo</source>
        <translation>デモを表示</translation>
    </message>
    <message>
        <source>Not Now</source>
        <translation>今はしない</translation>
    </message>
    <message>
        <source>No Music Found</source>
        <translation>ミュージックが見つかりません</translation>
    </message>
    <message>
        <source>There are no songs in your music folder. Would you like to look around with a dozen demo songs?</source>
        <translation>ミュージックフォルダに曲がありません。12曲のデモで試してみますか?</translation>
    </message>
    <message>
        <source>Music Library Unreadable</source>
        <translation>ミュージックライブラリを読み込めません</translation>
    </message>
    <message>
        <source>A new library can be made from your music folders. The old file is kept under another name; what only it knows, such as play counts, starts anew.</source>
        <translation>ミュージックフォルダから新しいライブラリを作成できます。古いファイルは別の名前で保存されます。再生回数など、そのファイルだけにある情報は最初からになります。</translation>
    </message>
    <message>
        <source>New Library</source>
        <translation>新規ライブラリ</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>Don&apos;t Allow</source>
        <translation>許可しない</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>“Trackwise” would like to access the microphone</source>
        <translation>“Trackwise”がマイクへのアクセスを求めています</translation>
    </message>
    <message>
        <source>It listens only while you look for a song by its sound. What is heard stays on this device and is not kept.</source>
        <translation>音で曲を探している間だけ聞き取ります。聞き取った音はこのデバイスから外に出ることはなく、保存もされません。</translation>
    </message>
</context>
<context>
    <name>trackwise::LibraryListModel</name>
    <message>
        <source>explicit</source>
        <translation>露骨な内容</translation>
    </message>
    <message>
        <source>file not available</source>
        <translation>ファイルを利用できません</translation>
    </message>
</context>
<context>
    <name>trackwise::LibraryRecognition</name>
    <message>
        <source>Microphone already in use</source>
        <translation>マイクはすでに使用中です</translation>
    </message>
    <message>
        <source>No microphone found</source>
        <translation>マイクが見つかりません</translation>
    </message>
    <message>
        <source>No sound on this device</source>
        <translation>このデバイスでは音声を使えません</translation>
    </message>
    <message>
        <source>Couldn&apos;t read known songs</source>
        <translation>既知の曲を読み込めませんでした</translation>
    </message>
</context>
<context>
    <name>trackwise::LinkDrop</name>
    <message>
        <source>Song Not Found</source>
        <translation>曲が見つかりません</translation>
    </message>
    <message>
        <source>This doesn&apos;t seem to be an Apple Music song.</source>
        <translation>これはApple Musicの曲ではないようです。</translation>
    </message>
    <message>
        <source>This doesn&apos;t seem to be a valid song.</source>
        <translation>これは有効な曲ではないようです。</translation>
    </message>
    <message>
        <source>Failed to Look Up Song</source>
        <translation>曲を検索できませんでした</translation>
    </message>
    <message>
        <source>You can try to find it via Select Song.</source>
        <translation>「曲を選択」から探してみてください。</translation>
    </message>
    <message>
        <source>Failed to Load Song</source>
        <translation>曲を読み込めませんでした</translation>
    </message>
    <message>
        <source>Please check your internet connection and try again. Or you can find it via Select Song without an internet connection.</source>
        <translation>インターネット接続を確認して、もう一度お試しください。「曲を選択」からなら、インターネット接続がなくても探せます。</translation>
    </message>
    <message>
        <source>Couldn&apos;t Find Song</source>
        <translation>曲が見つかりませんでした</translation>
    </message>
    <message>
        <source>Songs do need to be added to your library to get their info. If this song isn&apos;t in your library, add it then try again.</source>
        <translation>曲の情報を見るには、ライブラリに追加されている必要があります。この曲がライブラリにない場合は、追加してからもう一度お試しください。</translation>
    </message>
</context>
<context>
    <name>trackwise::ListeningStatus</name>
    <message>
        <source>Listening to music: %1 of %2</source>
        <translation>曲を聴いています：%1/%2</translation>
    </message>
    <message>
        <source>Paused</source>
        <translation>一時停止中</translation>
    </message>
    <message>
        <source>Paused: saving power</source>
        <translation>一時停止中：省電力</translation>
    </message>
    <message>
        <source>So that it can be recognized</source>
        <translation>あとで曲を認識するため</translation>
    </message>
    <message>
        <source>Go On Listening to Music</source>
        <translation>曲を聴くのを再開</translation>
    </message>
    <message>
        <source>Pause Listening to Music</source>
        <translation>曲を聴くのを一時停止</translation>
    </message>
</context>
<context>
    <name>trackwise::MediaPicker</name>
    <message>
        <source>Select Song</source>
        <translation>曲を選択</translation>
    </message>
    <message>
        <source>Artist or Album</source>
        <translation>アーティストまたはアルバム</translation>
    </message>
</context>
<context>
    <name>trackwise::MoreMenu</name>
    <message>
        <source>Now Playing</source>
        <translation>再生中の曲</translation>
    </message>
    <message>
        <source>Clear Selected Song</source>
        <translation>曲の選択を解除</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
    <message>
        <source>Select Song from</source>
        <translation>曲の選択元</translation>
    </message>
    <message>
        <source>Listening…</source>
        <translation>聞き取り中…</translation>
    </message>
    <message>
        <source>Music Recognition</source>
        <translation>ミュージック認識</translation>
    </message>
    <message>
        <source>About</source>
        <translation>このアプリについて</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
</context>
<context>
    <name>trackwise::ScanStatus</name>
    <message>
        <source>Reading music: %1 of %2</source>
        <translation>ミュージックを読み込み中: %1/%2</translation>
    </message>
    <message>
        <source>Looking for music: %1 of %2 found</source>
        <translation>ミュージックを検索中: %2件中%1件</translation>
    </message>
</context>
<context>
    <name>trackwise::SettingsScreen</name>
    <message>
        <source>Music Access</source>
        <translation>ミュージックへのアクセス</translation>
    </message>
    <message>
        <source>Extra Small</source>
        <translation>極小</translation>
    </message>
    <message>
        <source>Small</source>
        <translation>小</translation>
    </message>
    <message>
        <source>Medium</source>
        <translation>中</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>標準</translation>
    </message>
    <message>
        <source>Large</source>
        <translation>大</translation>
    </message>
    <message>
        <source>Extra Large</source>
        <translation>特大</translation>
    </message>
    <message>
        <source>Largest of the Usual Sizes</source>
        <translation>通常サイズの最大</translation>
    </message>
    <message>
        <source>Accessibility %1</source>
        <translation>アクセシビリティ%1</translation>
    </message>
    <message>
        <source>Not available now</source>
        <translation>現在利用できません</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>設定</translation>
    </message>
</context>
<context>
    <name>trackwise::SongPickerSource</name>
    <message>
        <source>Select Song</source>
        <translation>曲を選択</translation>
    </message>
</context>
</TS>
