brimlet_room(pages
    QML
        AmbientBackground EmptyState FadingLoader FittingRow PageHeader ScrollArea SectionPage Sheet Sideways
        StagePage TablePage)
