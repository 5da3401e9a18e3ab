brimlet_room(components
    SOURCES
        RingArc.cpp
        Segment.h
    QML
        AppButton AppCheckBox AppMenu AppMenuHeading AppMenuItem AppMenuSeparator AppScrollBar AppText Card Chip
        DestructiveButton FocusRing IconButton LegendDot Medallion Picker PrimaryButton RiskBadge ScanningRing
        SearchField SearchLine SegmentedBar SegmentedControl SizeBar SizeCell SoftShadow StatTile TurningRing)
