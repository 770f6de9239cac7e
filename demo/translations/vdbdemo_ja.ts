<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>korvel::Demo::HelpWindow</name>
    <message>
        <source>Tessra help</source>
        <translation>Tessra ヘルプ</translation>
    </message>
    <message>
        <source>&lt;h2&gt;Venues&lt;/h2&gt;&lt;p&gt;The venue database (Ctrl+D) knows halls all over the world: where they are, how a truck gets to the dock, what may hang from the grid.&lt;/p&gt;&lt;h3&gt;Find a venue&lt;/h3&gt;&lt;p&gt;Type a part of a name or of a city, or choose a country, and click &lt;b&gt;Search&lt;/b&gt;. &lt;b&gt;Reset&lt;/b&gt; lists everything again. A click on the header of the date column sorts.&lt;/p&gt;&lt;h3&gt;Look at it&lt;/h3&gt;&lt;p&gt;Select a row to see its details. The round buttons step through the pictures; the one in the middle opens them full screen, where the wheel zooms, A and D step, and Ctrl+S saves the picture.&lt;/p&gt;&lt;h3&gt;Bring it into the plan&lt;/h3&gt;&lt;p&gt;Choose one of the model files and click &lt;b&gt;Import to Tessra&lt;/b&gt;. The plan then shows the hall to scale, its stage, its seats and its rigging points with their loads.&lt;/p&gt;&lt;h3&gt;Keys&lt;/h3&gt;&lt;p&gt;Ctrl+D venue database &amp;nbsp;·&amp;nbsp; Ctrl+B light or dark &amp;nbsp;·&amp;nbsp; F1 this page &amp;nbsp;·&amp;nbsp; Ctrl+Q quit&lt;/p&gt;</source>
        <translation>&lt;h2&gt;会場&lt;/h2&gt;&lt;p&gt;会場データベース (Ctrl+D) には世界中のホールが載っています。所在地、トラックの搬入経路、すのこに吊れる荷重がわかります。&lt;/p&gt;&lt;h3&gt;会場を探す&lt;/h3&gt;&lt;p&gt;名称や都市名の一部を入力するか、国を選んで&lt;b&gt;検索&lt;/b&gt;をクリックします。&lt;b&gt;リセット&lt;/b&gt;ですべての会場に戻ります。日付の列の見出しをクリックすると並べ替えます。&lt;/p&gt;&lt;h3&gt;会場を見る&lt;/h3&gt;&lt;p&gt;行を選ぶと詳細が表示されます。丸いボタンで写真を送り、中央のボタンで全画面表示にします。全画面ではホイールで拡大縮小、A と D で写真送り、Ctrl+S で写真を保存できます。&lt;/p&gt;&lt;h3&gt;図面に取り込む&lt;/h3&gt;&lt;p&gt;モデルファイルを選んで&lt;b&gt;Tessra に読み込む&lt;/b&gt;をクリックします。図面にホールが縮尺どおりに表示され、舞台、客席、吊り点とその荷重がわかります。&lt;/p&gt;&lt;h3&gt;キー&lt;/h3&gt;&lt;p&gt;Ctrl+D 会場データベース &amp;nbsp;·&amp;nbsp; Ctrl+B 明るい表示と暗い表示 &amp;nbsp;·&amp;nbsp; F1 このページ &amp;nbsp;·&amp;nbsp; Ctrl+Q 終了&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::MainWindow</name>
    <message>
        <source>Tessra – untitled plan</source>
        <translation>Tessra – 無題の図面</translation>
    </message>
    <message>
        <source>Venue &amp;database…</source>
        <translation>会場データベース(&amp;D)…</translation>
    </message>
    <message>
        <source>&amp;Theme</source>
        <translation>テーマ(&amp;T)</translation>
    </message>
    <message>
        <source>Light or dark (Ctrl+B)</source>
        <translation>明るい表示と暗い表示 (Ctrl+B)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>ヘルプ(&amp;H)</translation>
    </message>
    <message>
        <source>No venue</source>
        <translation>会場なし</translation>
    </message>
    <message>
        <source>Plan</source>
        <translation>図面</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
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
        <source>Tessra – %1</source>
        <translation>Tessra – %1</translation>
    </message>
    <message>
        <source>Imported from the venue database</source>
        <translation>会場データベースから読み込みました</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::PlanView</name>
    <message>
        <source>No venue in this plan yet</source>
        <translation>この図面にはまだ会場がありません</translation>
    </message>
    <message>
        <source>Open the venue database, choose a hall and import its model.</source>
        <translation>会場データベースを開き、ホールを選んでモデルを読み込んでください。</translation>
    </message>
    <message numerus="yes">
        <source>Hall %1 × %2 m   ·   %n rigging points, %3 t in all</source>
        <translation>
            <numerusform>ホール %1 × %2 m   ·   吊り点 %n か所、合計 %3 t</numerusform>
        </translation>
    </message>
    <message>
        <source>%1 m</source>
        <translation>%1 m</translation>
    </message>
    <message>
        <source>Rigging point, load in kg</source>
        <translation>吊り点、荷重 (kg)</translation>
    </message>
    <message>
        <source>Seats</source>
        <translation>客席</translation>
    </message>
    <message>
        <source>Stage</source>
        <translation>舞台</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::VenueDatabaseEmbedding</name>
    <message>
        <source>Import</source>
        <translation>読み込み</translation>
    </message>
    <message>
        <source>This model file cannot be read, so the plan stays as it is.</source>
        <translation>このモデルファイルは読み込めないため、図面は変わりません。</translation>
    </message>
</context>
<context>
    <name>korvel::Demo::VenueModelFile</name>
    <message>
        <source>Line %1: %2</source>
        <translation>%1 行目: %2</translation>
    </message>
    <message>
        <source>this is not a venue model; such a file begins with &quot;tessra-venue 1&quot;.</source>
        <translation>会場モデルではありません。会場モデルは「tessra-venue 1」で始まります。</translation>
    </message>
    <message>
        <source>the file has format version &quot;%1&quot;, only version 1 can be read.</source>
        <translation>ファイルの形式バージョンは「%1」ですが、読み込めるのはバージョン 1 だけです。</translation>
    </message>
    <message>
        <source>the word &quot;%1&quot; is not known.</source>
        <translation>「%1」という語は使えません。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; may stand only once.</source>
        <translation>「%1」は一度しか使えません。</translation>
    </message>
    <message>
        <source>the name is missing.</source>
        <translation>名前がありません。</translation>
    </message>
    <message>
        <source>the unit &quot;%1&quot; is not known, only &quot;m&quot; is.</source>
        <translation>単位「%1」は使えません。使えるのは「m」だけです。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; needs at least three corners.</source>
        <translation>「%1」には角が三つ以上必要です。</translation>
    </message>
    <message>
        <source>a rigging point is a position and a load, for example &quot;2.5,-3 500&quot;.</source>
        <translation>吊り点は位置と荷重で表します。例:「2.5,-3 500」</translation>
    </message>
    <message>
        <source>the load &quot;%1&quot; is out of range.</source>
        <translation>荷重「%1」は範囲外です。</translation>
    </message>
    <message>
        <source>the file has more than %1 points.</source>
        <translation>ファイルの点が %1 個を超えています。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a position like &quot;2.5,-3&quot;.</source>
        <translation>「%1」は「2.5,-3」のような位置ではありません。</translation>
    </message>
    <message>
        <source>the position &quot;%1&quot; is too far out.</source>
        <translation>位置「%1」は離れすぎています。</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a number.</source>
        <translation>「%1」は数ではありません。</translation>
    </message>
    <message>
        <source>The line &quot;%1&quot; is missing in the file.</source>
        <translation>ファイルに「%1」の行がありません。</translation>
    </message>
    <message>
        <source>The file cannot be opened: %1</source>
        <translation>ファイルを開けません: %1</translation>
    </message>
    <message>
        <source>The file cannot be read: %1</source>
        <translation>ファイルを読めません: %1</translation>
    </message>
    <message>
        <source>The file is empty.</source>
        <translation>ファイルが空です。</translation>
    </message>
    <message>
        <source>The file is larger than %1 MB.</source>
        <translation>ファイルが %1 MB を超えています。</translation>
    </message>
    <message>
        <source>The file is not a text in UTF-8.</source>
        <translation>ファイルは UTF-8 のテキストではありません。</translation>
    </message>
</context>
</TS>
