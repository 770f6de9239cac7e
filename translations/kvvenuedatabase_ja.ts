<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Complex name</source>
        <translation>複合施設名</translation>
    </message>
    <message>
        <source>Venue/room name</source>
        <translation>会場・ホール名</translation>
    </message>
    <message>
        <source>City</source>
        <translation>都市</translation>
    </message>
    <message>
        <source>General comment</source>
        <translation>全般コメント</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>国</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>住所</translation>
    </message>
    <message>
        <source>Editing date (UTC)</source>
        <translation>編集日時 (UTC)</translation>
    </message>
    <message>
        <source>Location comment</source>
        <translation>立地コメント</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>コメント</translation>
    </message>
    <message>
        <source>Clearance of house grid (m)</source>
        <translation>すのこ下の有効高さ (m)</translation>
    </message>
    <message>
        <source>Upload date</source>
        <translation>アップロード日</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>編集者</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::FoldingIcon</name>
    <message>
        <source>Expand venue details</source>
        <translation>会場の詳細を展開</translation>
    </message>
    <message>
        <source>Collapse venue details</source>
        <translation>会場の詳細を折りたたむ</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureFullscreenDialog</name>
    <message>
        <source>Could not save file. Sorry.</source>
        <translation>申し訳ありません。ファイルを保存できませんでした。</translation>
    </message>
    <message>
        <source>Saved &quot;%1&quot;</source>
        <translation>「%1」を保存しました</translation>
    </message>
    <message>
        <source>Cannot write %1</source>
        <translation>%1 に書き込めません</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 はすでに存在します。
置き換えますか？</translation>
    </message>
    <message>
        <source>Save Image As...</source>
        <translation>名前を付けて画像を保存...</translation>
    </message>
    <message>
        <source>Save Image As</source>
        <translation>名前を付けて画像を保存</translation>
    </message>
    <message>
        <source>Venue database pictures</source>
        <translation>会場データベースの画像</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>画像</translation>
    </message>
    <message>
        <source>Plus and Minus zoom, Page Up shows the next picture and Page Down the previous one, Ctrl+S saves.</source>
        <translation>プラスとマイナスで拡大・縮小、Page Up で次の画像、Page Down で前の画像、Ctrl+S で保存します。</translation>
    </message>
    <message>
        <source>Loading large image...</source>
        <translation>大きな画像を読み込んでいます...</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureNavigationButton</name>
    <message>
        <source>Previous picture</source>
        <translation>前の画像</translation>
    </message>
    <message>
        <source>Next picture</source>
        <translation>次の画像</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureSlider</name>
    <message>
        <source>No Image</source>
        <translation>画像なし</translation>
    </message>
    <message>
        <source>Venue pictures</source>
        <translation>会場の画像</translation>
    </message>
    <message>
        <source>Show pictures full screen</source>
        <translation>画像を全画面で表示</translation>
    </message>
    <message>
        <source>Image failure</source>
        <translation>画像エラー</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::TsFileOpener</name>
    <message>
        <source>File selector: </source>
        <translation>モデルファイル: </translation>
    </message>
    <message>
        <source>Import to Tessra</source>
        <translation>Tessra に読み込む</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbCentralWidget</name>
    <message>
        <source>To conduct a targeted search, please enter search terms or single letters in the fields below and click Search. To view the complete result list, click Reset.</source>
        <translation>条件を絞って検索するには、下の欄に検索語または文字を入力して［検索］をクリックしてください。すべての結果を表示するには［リセット］をクリックしてください。</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>検索</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>リセット</translation>
    </message>
    <message>
        <source>Venues</source>
        <translation>会場</translation>
    </message>
    <message>
        <source>The venues that were found. Select one to see its details.</source>
        <translation>見つかった会場です。選択すると詳細が表示されます。</translation>
    </message>
    <message>
        <source>Sort by %1</source>
        <translation>「%1」で並べ替え</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>Unable to connect to server. 
Please check your internet connection.</source>
        <translation>サーバーに接続できません。
インターネット接続を確認してください。</translation>
    </message>
    <message>
        <source>Loading...</source>
        <translation>読み込み中...</translation>
    </message>
    <message>
        <source>Height of the venue table</source>
        <translation>会場の表の高さ</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbDialog</name>
    <message>
        <source>Venue database</source>
        <translation>会場データベース</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbDialogBase</name>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDetailsWidget</name>
    <message>
        <source>Venue details</source>
        <translation>会場の詳細</translation>
    </message>
    <message>
        <source>Name of overall multi-venue building or campus (identical to Venue name if there is only one event venue in the building/on the campus).</source>
        <translation>複数の会場がある建物または敷地全体の名称（会場が 1 つだけの場合は会場名と同じ）。</translation>
    </message>
    <message>
        <source>Name of the specific venue/room within the multi-venue building/campus (identical to Complex name if there is only one venue in the building).</source>
        <translation>複合施設内の個々の会場・ホールの名称（建物内の会場が 1 つだけの場合は複合施設名と同じ）。</translation>
    </message>
    <message>
        <source>Official address of venue.</source>
        <translation>会場の正式な住所。</translation>
    </message>
    <message>
        <source>Anything that is important to know when accessing the venue, such as &quot;try to arrive before 9am to avoid terrible traffic&quot;.</source>
        <translation>会場へのアクセスで知っておくべき事項（例：「渋滞を避けるため午前 9 時前に到着すること」）。</translation>
    </message>
    <message>
        <source>If the street address of the loading dock is not the same as the official loading dock address, please enter here.</source>
        <translation>搬入口の所在地が正式な搬入口の住所と異なる場合は、こちらに入力してください。</translation>
    </message>
    <message>
        <source>If there are any peculiarities about the dock (e.g. &quot;difficult to reverse into&quot;, or &quot;freight elevator only&quot;), please note them here.</source>
        <translation>搬入口に特記事項がある場合（例：「後退での進入が困難」「荷物用エレベーターのみ」）は、こちらに記入してください。</translation>
    </message>
    <message>
        <source>To calculate how much actual rigging height is going to be available considering production-specific pre-riggs and chain motors.</source>
        <translation>公演ごとのプリリグやチェーンモーターを考慮して、実際に確保できるリギング高さを計算するための値。</translation>
    </message>
    <message>
        <source>Any specialties or unusual restrictions, such as &quot;all points have to be bridled&quot; or &quot;no access to catwalk, all points have to be set via cherry picker&quot;.</source>
        <translation>特殊事項や通常と異なる制約（例：「すべての吊点でブライドルが必要」「キャットウォークは使用不可、すべての吊点は高所作業車で設置」）。</translation>
    </message>
    <message>
        <source>labelKorvelCaptionSmall</source>
        <translation>labelKorvelCaptionSmall</translation>
    </message>
    <message>
        <source>Loading dock, %1</source>
        <translation>搬入口、%1</translation>
    </message>
    <message>
        <source>Rigging, %1</source>
        <translation>リギング、%1</translation>
    </message>
</context>
</TS>
