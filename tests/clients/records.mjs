// What stands in the stores once a client has written its note, reminder and event.
export const note = {
    store: 'LOCAL_NOTES_ACCOUNT',
    title: 'Call back on Friday',
    summary: 'Call back on Friday\nAsk for the offer',
    content: 'Call back on Friday\nAsk for the offer',
    body: 'Call back on Friday\nAsk for the offer',
    plainText: true,
    id: 1,
    created: '2026-03-05T14:37:12+01:00',
    modified: '2026-03-05T14:37:12+01:00',
};

export const reminder = {
    list: 'Work',
    title: 'Send the offer',
    priority: 5,
    start: '2026-03-05T14:37:00+01:00',
    due: '2026-03-06T09:40:00+01:00',
    alarms: ['2026-03-06T09:40:00+01:00'],
};

export const event = {
    calendar: 'Work',
    title: 'Lunch with Anna',
    location: 'Viktualienmarkt',
    start: '2026-03-13',
    end: '2026-03-14',
    allDay: true,
    alarms: [0],
    recurrence: { frequency: 'weekly', interval: 1, until: null },
};
