// webdriverio: touching and typing.
import assert from 'node:assert/strict';
import { test } from 'node:test';
import { Key } from 'webdriverio';

import { onPhone, onSheet } from './webdriverio.mjs';

const text = (driver) => driver.$('XCUIElementTypeTextView');

test('taps an element and a point', onSheet(async (driver) => {
    await driver.$('~Note').tap();
    await driver.$('~Cancel').tap();
    await driver.$('~Cancel').waitForExist({ reverse: true });
    await driver.tap({ x: 160, y: 50 });
    await driver.$('~Event').waitForDisplayed();
}));

test('touches for a long time, twice, and at a place in an element', onSheet(async (driver) => {
    await driver.$('~Note').longPress({ duration: 700 });
    await text(driver).waitForDisplayed();
    await driver.$('~Cancel').click({ x: 10, y: 5 });
    await driver.$('~Cancel').waitForExist({ reverse: true });

    await driver.$('~mute').doubleClick();
    assert.equal(await driver.$('~mute').isSelected(), false);
    await driver.$('~mute').click();
    assert.equal(await driver.$('~mute').isSelected(), true);
}));

test('types, erases and goes on, key by key', onSheet(async (driver) => {
    await driver.$('~Note').click();
    await text(driver).addValue('Call');
    await text(driver).addValue(' Anna');
    await driver.keys([Key.Backspace, 'e', Key.Enter, 'ö']);
    assert.equal(await text(driver).getValue(), 'Call Anne\nö');

    await driver.action('key').down('x').up('x').pause(20).down('y').up('y').perform();
    assert.equal(await text(driver).getValue(), 'Call Anne\nöxy');

    await text(driver).setValue('new');
    assert.equal(await text(driver).getValue(), 'new');
    await text(driver).clearValue();
    await driver.execute('mobile: keys', { keys: ['l', 'ater'] });
    assert.equal(await text(driver).getValue(), 'later');
}));

test('works a switch', onSheet(async (driver) => {
    await driver.$('~Event').click();
    await driver.$('//XCUIElementTypeCell[starts-with(@label, "Date")]').click();
    const allDay = driver.$('XCUIElementTypeSwitch');
    assert.equal(await allDay.getValue(), '0');
    await allDay.click();
    assert.equal(await allDay.getValue(), '1');
    await allDay.tap();
    assert.equal(await allDay.getValue(), '0');
}));

test('shows and hides the keyboard', onSheet(async (driver) => {
    await driver.$('~Reminder').click();
    assert.equal(await driver.isKeyboardShown(), false);
    await text(driver).click();
    assert.equal(await driver.isKeyboardShown(), true);
    await driver.hideKeyboard();
    assert.equal(await driver.isKeyboardShown(), false);
}));

test('carries texts by the clipboard', onPhone(async (driver) => {
    await driver.setClipboard(Buffer.from('Grüße').toString('base64'), 'plaintext');
    assert.equal(Buffer.from(await driver.getClipboard(), 'base64').toString(), 'Grüße');
}));

test('is refused a second finger, a touch beyond the screen, and a key that is not there', onSheet(async (driver) => {
    const finger = (x) => driver.action('pointer', { parameters: { pointerType: 'touch' } }).move({ x, y: 20 }).down().up();
    await assert.rejects(driver.actions([finger(10), finger(200)]), { name: 'unsupported operation' });
    await assert.rejects(driver.$('~mute').pinch(), { name: 'unsupported operation' });
    await assert.rejects(finger(2000).perform(), { name: 'invalid coordinates' });
    await driver.$('~Note').click();
    await text(driver).click();
    await assert.rejects(driver.keys([Key.F5]), { name: 'unsupported operation' });
    await assert.rejects(driver.$('~Account').addValue('x'), { name: 'invalid element state' });
}));
