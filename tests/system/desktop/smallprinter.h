// Describes a printer of A5 sheets that leaves much room below.
#pragma once

inline constexpr const char* kSmallPrinter = R"ppd(*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "SMALL.PPD"
*Manufacturer: "Test"
*Product: "(Small)"
*ModelName: "Small"
*ShortNickName: "Small"
*NickName: "Small"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: False
*DefaultColorSpace: Gray
*FileSystem: False
*Throughput: "1"
*LandscapeOrientation: Plus90
*TTRasterizer: Type42
*cupsFilter: "application/pdf 0 -"
*OpenUI *PageSize/Page Size: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A5
*PageSize A5/A5: "<</PageSize[420 595]>>setpagedevice"
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion/Page Region: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A5
*PageRegion A5/A5: "<</PageSize[420 595]>>setpagedevice"
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A5
*ImageableArea A5/A5: "12 60 408 583"
*ImageableArea A4/A4: "12 60 583 830"
*DefaultPaperDimension: A5
*PaperDimension A5/A5: "420 595"
*PaperDimension A4/A4: "595 842"
*DefaultFont: Courier
*Font Courier: Standard "(002.004S)" Standard ROM
)ppd";
