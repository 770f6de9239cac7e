<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>QObject</name>
    <message>
        <source>ID</source>
        <translation>ID</translation>
    </message>
    <message>
        <source>Complex name</source>
        <translation>Complex name</translation>
    </message>
    <message>
        <source>Venue/room name</source>
        <translation>Venue/room name</translation>
    </message>
    <message>
        <source>City</source>
        <translation>City</translation>
    </message>
    <message>
        <source>General comment</source>
        <translation>General comment</translation>
    </message>
    <message>
        <source>Country</source>
        <translation>Country</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Address</translation>
    </message>
    <message>
        <source>Editing date (UTC)</source>
        <translation>Editing date (UTC)</translation>
    </message>
    <message>
        <source>Location comment</source>
        <translation>Location comment</translation>
    </message>
    <message>
        <source>Comment</source>
        <translation>Comment</translation>
    </message>
    <message>
        <source>Clearance of house grid (m)</source>
        <translation>Clearance of house grid (m)</translation>
    </message>
    <message>
        <source>Upload date</source>
        <translation>Upload date</translation>
    </message>
    <message>
        <source>Editor</source>
        <translation>Editor</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::FoldingIcon</name>
    <message>
        <source>Expand venue details</source>
        <translation>Expand venue details</translation>
    </message>
    <message>
        <source>Collapse venue details</source>
        <translation>Collapse venue details</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureFullscreenDialog</name>
    <message>
        <source>Could not save file. Sorry.</source>
        <translation>Could not save file. Sorry.</translation>
    </message>
    <message>
        <source>Saved &quot;%1&quot;</source>
        <translation>Saved &quot;%1&quot;</translation>
    </message>
    <message>
        <source>Cannot write %1</source>
        <translation>Cannot write %1</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 already exists.
Do you want to replace it?</translation>
    </message>
    <message>
        <source>Save Image As...</source>
        <translation>Save Image As...</translation>
    </message>
    <message>
        <source>Save Image As</source>
        <translation>Save Image As</translation>
    </message>
    <message>
        <source>Venue database pictures</source>
        <translation>Venue database pictures</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Picture</translation>
    </message>
    <message>
        <source>Plus and Minus zoom, Page Up shows the next picture and Page Down the previous one, Ctrl+S saves.</source>
        <translation>Plus and Minus zoom, Page Up shows the next picture and Page Down the previous one, Ctrl+S saves.</translation>
    </message>
    <message>
        <source>Loading large image...</source>
        <translation>Loading large image...</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureNavigationButton</name>
    <message>
        <source>Previous picture</source>
        <translation>Previous picture</translation>
    </message>
    <message>
        <source>Next picture</source>
        <translation>Next picture</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::PictureSlider</name>
    <message>
        <source>No Image</source>
        <translation>No Image</translation>
    </message>
    <message>
        <source>Venue pictures</source>
        <translation>Venue pictures</translation>
    </message>
    <message>
        <source>Show pictures full screen</source>
        <translation>Show pictures full screen</translation>
    </message>
    <message>
        <source>Image failure</source>
        <translation>Image failure</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::TsFileOpener</name>
    <message>
        <source>File selector: </source>
        <translation>File selector: </translation>
    </message>
    <message>
        <source>Import to Tessra</source>
        <translation>Import to Tessra</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbCentralWidget</name>
    <message>
        <source>To conduct a targeted search, please enter search terms or single letters in the fields below and click Search. To view the complete result list, click Reset.</source>
        <translation>To conduct a targeted search, please enter search terms or single letters in the fields below and click Search. To view the complete result list, click Reset.</translation>
    </message>
    <message>
        <source>Search</source>
        <translation>Search</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Reset</translation>
    </message>
    <message>
        <source>Venues</source>
        <translation>Venues</translation>
    </message>
    <message>
        <source>The venues that were found. Select one to see its details.</source>
        <translation>The venues that were found. Select one to see its details.</translation>
    </message>
    <message>
        <source>Sort by %1</source>
        <translation>Sort by %1</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message>
        <source>Unable to connect to server. 
Please check your internet connection.</source>
        <translation>Unable to connect to server. 
Please check your internet connection.</translation>
    </message>
    <message>
        <source>Loading...</source>
        <translation>Loading...</translation>
    </message>
    <message>
        <source>Height of the venue table</source>
        <translation>Height of the venue table</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbDialog</name>
    <message>
        <source>Venue database</source>
        <translation>Venue database</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDbDialogBase</name>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Help</translation>
    </message>
</context>
<context>
    <name>korvel::Ui::VenueDatabase::VenueDetailsWidget</name>
    <message>
        <source>Venue details</source>
        <translation>Venue details</translation>
    </message>
    <message>
        <source>Name of overall multi-venue building or campus (identical to Venue name if there is only one event venue in the building/on the campus).</source>
        <translation>Name of overall multi-venue building or campus (identical to Venue name if there is only one event venue in the building/on the campus).</translation>
    </message>
    <message>
        <source>Name of the specific venue/room within the multi-venue building/campus (identical to Complex name if there is only one venue in the building).</source>
        <translation>Name of the specific venue/room within the multi-venue building/campus (identical to Complex name if there is only one venue in the building).</translation>
    </message>
    <message>
        <source>Official address of venue.</source>
        <translation>Official address of venue.</translation>
    </message>
    <message>
        <source>Anything that is important to know when accessing the venue, such as &quot;try to arrive before 9am to avoid terrible traffic&quot;.</source>
        <translation>Anything that is important to know when accessing the venue, such as &quot;try to arrive before 9am to avoid terrible traffic&quot;.</translation>
    </message>
    <message>
        <source>If the street address of the loading dock is not the same as the official loading dock address, please enter here.</source>
        <translation>If the street address of the loading dock is not the same as the official loading dock address, please enter here.</translation>
    </message>
    <message>
        <source>If there are any peculiarities about the dock (e.g. &quot;difficult to reverse into&quot;, or &quot;freight elevator only&quot;), please note them here.</source>
        <translation>If there are any peculiarities about the dock (e.g. &quot;difficult to reverse into&quot;, or &quot;freight elevator only&quot;), please note them here.</translation>
    </message>
    <message>
        <source>To calculate how much actual rigging height is going to be available considering production-specific pre-riggs and chain motors.</source>
        <translation>To calculate how much actual rigging height is going to be available considering production-specific pre-riggs and chain motors.</translation>
    </message>
    <message>
        <source>Any specialties or unusual restrictions, such as &quot;all points have to be bridled&quot; or &quot;no access to catwalk, all points have to be set via cherry picker&quot;.</source>
        <translation>Any specialties or unusual restrictions, such as &quot;all points have to be bridled&quot; or &quot;no access to catwalk, all points have to be set via cherry picker&quot;.</translation>
    </message>
    <message>
        <source>labelKorvelCaptionSmall</source>
        <translation>labelKorvelCaptionSmall</translation>
    </message>
    <message>
        <source>Loading dock, %1</source>
        <translation>Loading dock, %1</translation>
    </message>
    <message>
        <source>Rigging, %1</source>
        <translation>Rigging, %1</translation>
    </message>
</context>
</TS>
