// selenium-webdriver: what is written during a call stands in the stores.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { By, Key, until } from 'selenium-webdriver';

import { patience } from './phone.mjs';
import * as expected from './records.mjs';
import { named, onSheet } from './selenium.mjs';

const row = (driver, title) => driver.findElement(By.xpath(`//XCUIElementTypeCell[starts-with(@label, "${title},")]`));
const ofType = (driver, type) => driver.findElement(By.className(`XCUIElementType${type}`));
const click = (driver, name) => driver.findElement(named(name)).click();
const goBack = (driver) => click(driver, 'Back');

async function finish(driver) {
    const done = await driver.findElement(named('Done'));
    await done.click();
    await driver.wait(until.stalenessOf(done), patience);
}

/// Chooses from a row's list, which stands there once access was given.
async function choose(driver, title, choice) {
    await row(driver, title).click();
    await driver.wait(until.alertIsPresent(), patience);
    await driver.switchTo().alert().accept();
    await goBack(driver);
    await row(driver, title).click();
    await driver.findElement(By.xpath(`//XCUIElementTypeCell[@label="${choice}"]`)).click();
    await goBack(driver);
    assert.equal(await row(driver, title).getText(), `${title}, ${choice}`);
}

test('selenium-webdriver writes a note', onSheet(async (driver, phone) => {
    await click(driver, 'Note');
    await ofType(driver, 'TextView').sendKeys('Call back on Friday', Key.ENTER, 'Ask for the offer');
    await finish(driver);

    assert.deepEqual(phone.records(), { notes: [expected.note], reminders: [], events: [] });
}));

test('selenium-webdriver writes a reminder, turning the wheels of its date', onSheet(async (driver, phone) => {
    await click(driver, 'Reminder');
    await ofType(driver, 'TextView').sendKeys('Send the offer');
    await choose(driver, 'List', 'Work');
    await row(driver, 'Remind me').click();
    for (const [wheel, value] of [['day', 'Fri Mar 6'], ['hour', '9'], ['minute', '40'], ['period', 'AM']]) {
        await driver.findElement(By.id(wheel)).sendKeys(value);
    }
    await goBack(driver);
    assert.equal(await row(driver, 'Remind me').getText(), 'Remind me, 06/03 09:40');
    await row(driver, 'Priority').click();
    await click(driver, '!!');
    await goBack(driver);
    await finish(driver);

    assert.deepEqual(phone.records(), { notes: [], reminders: [expected.reminder], events: [] });
}));

test('selenium-webdriver writes an event for whole days, repeated', onSheet(async (driver, phone) => {
    await click(driver, 'Event');
    const [description, location] = await driver.findElements(By.className('XCUIElementTypeTextField'));
    await description.sendKeys('Lunch with Anna');
    await location.sendKeys('Viktualienmarkt');
    await choose(driver, 'Calendar', 'Work');
    await row(driver, 'Date').click();
    for (const [title, day] of [['Start', '2026-03-13T12:30'], ['End', '2026-03-14T13:45']]) {
        await row(driver, title).click();
        await ofType(driver, 'DatePicker').sendKeys(day);
        await goBack(driver);
    }
    const allDay = await ofType(driver, 'Switch');
    await allDay.click();
    assert.equal(await allDay.getAttribute('value'), '1');
    await goBack(driver);
    await row(driver, 'Repeat').click();
    await click(driver, 'Every Week');
    await goBack(driver);
    await finish(driver);

    assert.deepEqual(phone.records(), { notes: [], reminders: [], events: [expected.event] });
}));
