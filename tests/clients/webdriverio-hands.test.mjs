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

test('swipes over what scrolls and over the screen', onSheet(async (driver) => {
    await driver.$('~Event').click();
    await driver.$('//XCUIElementTypeCell[starts-with(@label, "Repeat")]').click();
    const week = await driver.$('~Every Week');
    const before = await week.getLocation('y');
    await driver.swipe({ direction: 'up', scrollableElement: driver.$('XCUIElementTypeTable'), percent: 0.3 });
    const scrolled = await week.getLocation('y');
    assert.ok(scrolled < before, `${scrolled} is not above ${before}`);

    await driver.swipe({ from: { x: 160, y: 300 }, to: { x: 160, y: 340 } });
    assert.ok(await week.getLocation('y') > scrolled);
    await driver.swipe({ direction: 'up' });
    await driver.$('~Every 2 Weeks').waitForDisplayed();
}));

test('scrolls to what is out of sight', onSheet(async (driver) => {
    await driver.$('~Event').click();
    await driver.$('//XCUIElementTypeCell[starts-with(@label, "Repeat")]').click();
    await driver.$('~Every Year').scrollIntoView({ scrollableElement: driver.$('XCUIElementTypeTable') });
    await driver.$('~Every Year').click();
    await driver.$('~Back').click();
    await driver.$('~Repeat, Every Year').waitForDisplayed();
}));

test('moves a pointer as it is told', onSheet(async (driver) => {
    await driver.action('pointer', { parameters: { pointerType: 'touch' } })
        .move({ origin: driver.$('~Note') }).down().pause(50).up().perform();
    await text(driver).waitForDisplayed();
    await driver.releaseActions();

    const { x, y } = await driver.$('~Cancel').getLocation();
    await driver.action('pointer', { parameters: { pointerType: 'touch' } })
        .move({ x: x + 5, y: y + 5 }).down().move({ duration: 100, origin: 'pointer', x: 3, y: 3 }).up().perform();
    await driver.$('~Cancel').waitForExist({ reverse: true });
}));

test('turns a wheel row by row', onSheet(async (driver) => {
    await driver.$('~Reminder').click();
    await driver.$('//XCUIElementTypeCell[starts-with(@label, "Remind me")]').click();
    const hour = await driver.$('~hour');
    assert.equal(await hour.getValue(), '2');
    await driver.execute('mobile: selectPickerWheelValue', { element: hour.elementId, order: 'next' });
    assert.equal(await hour.getValue(), '3');
    await driver.execute('mobile: selectPickerWheelValue', { element: hour.elementId, order: 'previous' });
    assert.equal(await hour.getValue(), '2');
    await assert.rejects(hour.setValue('25'), { name: 'invalid argument' });
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
