// webdriverio: what is written during a call stands in the stores.
import assert from 'node:assert/strict';
import { test } from 'node:test';

import * as expected from './records.mjs';
import { onSheet } from './webdriverio.mjs';

const row = (driver, title) => driver.$(`//XCUIElementTypeCell[starts-with(@label, "${title},")]`);

async function finish(driver) {
    await driver.$('~Done').click();
    await driver.$('~Done').waitForExist({ reverse: true });
}

/// Chooses from a row's list, which stands there once access was given.
async function choose(driver, title, choice) {
    await row(driver, title).click();
    await driver.acceptAlert();
    await driver.$('~Back').click();
    await row(driver, title).click();
    await driver.$(`-ios predicate string:type == "XCUIElementTypeCell" AND label == "${choice}"`).click();
    await driver.$('~Back').click();
    assert.equal(await row(driver, title).getText(), `${title}, ${choice}`);
}

test('webdriverio writes a note', onSheet(async (driver, phone) => {
    await driver.$('~Note').click();
    await driver.$('XCUIElementTypeTextView').setValue('Call back on Friday\nAsk for the offer');
    await finish(driver);

    assert.deepEqual(phone.records(), { notes: [expected.note], reminders: [], events: [] });
}));

test('webdriverio writes a reminder, turning the wheels of its date', onSheet(async (driver, phone) => {
    await driver.$('~Reminder').click();
    await driver.$('XCUIElementTypeTextView').setValue('Send the offer');
    await choose(driver, 'List', 'Work');
    await row(driver, 'Remind me').click();
    await driver.$('~day').setValue('Fri Mar 6');
    await driver.$('~hour').setValue('9');
    await driver.$('~minute').setValue('40');
    await driver.$('~period').setValue('AM');
    await driver.$('~Back').click();
    assert.equal(await row(driver, 'Remind me').getText(), 'Remind me, 06/03 09:40');
    await row(driver, 'Priority').click();
    await driver.$('~!!').click();
    await driver.$('~Back').click();
    await finish(driver);

    assert.deepEqual(phone.records(), { notes: [], reminders: [expected.reminder], events: [] });
}));

test('webdriverio writes an event for whole days, repeated', onSheet(async (driver, phone) => {
    await driver.$('~Event').click();
    await driver.$('-ios predicate string:placeholderValue == "Description"').setValue('Lunch with Anna');
    await driver.$('-ios predicate string:placeholderValue == "Location"').setValue('Viktualienmarkt');
    await choose(driver, 'Calendar', 'Work');
    await row(driver, 'Date').click();
    for (const [title, day] of [['Start', '2026-03-13T12:30'], ['End', '2026-03-14T13:45']]) {
        await row(driver, title).click();
        await driver.$('XCUIElementTypeDatePicker').setValue(day);
        await driver.$('~Back').click();
    }
    await driver.$('XCUIElementTypeSwitch').click();
    assert.equal(await driver.$('XCUIElementTypeSwitch').getValue(), '1');
    await driver.$('~Back').click();
    await row(driver, 'Repeat').click();
    await driver.$('~Every Week').click();
    await driver.$('~Back').click();
    await finish(driver);

    assert.deepEqual(phone.records(), { notes: [], reminders: [], events: [expected.event] });
}));
